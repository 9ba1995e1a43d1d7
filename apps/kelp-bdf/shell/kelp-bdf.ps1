# Completion of kelp-bdf for PowerShell. The command itself tells what may stand at the cursor.

Register-ArgumentCompleter -Native -CommandName @('kelp-bdf', 'kelp-bdf.exe') -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)
    $program = $commandAst.CommandElements[0].ToString()
    $words = @($commandAst.CommandElements | Select-Object -Skip 1 |
        Where-Object { $_.Extent.EndOffset -lt $cursorPosition } |
        ForEach-Object { '=' + $_.ToString().Trim("'", '"') })
    $words += '=' + $wordToComplete
    & $program __complete @words 2>$null | ForEach-Object {
        $candidate, $meaning = $_ -split "`t", 2
        if ($candidate -eq ':files') {
            [System.Management.Automation.CompletionCompleters]::CompleteFilename($wordToComplete)
        }
        else {
            if (-not $meaning) { $meaning = $candidate }
            [System.Management.Automation.CompletionResult]::new(
                $candidate, $candidate, 'ParameterValue', $meaning)
        }
    }
}
