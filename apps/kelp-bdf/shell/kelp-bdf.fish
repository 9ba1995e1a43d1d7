# Completion of kelp-bdf for fish. The command itself tells what may stand at the cursor.

function __kelp_bdf_complete
    set -l words (commandline -opc)
    set -l program $words[1]
    set -e words[1]
    set -l current (commandline -ct)
    for line in (command $program __complete "="$words "=$current" 2>/dev/null)
        if test "$line" = :files
            # Behind "--option=" a file's name begins.
            set -l before ''
            if string match -q -- '--*=*' $current
                set before (string replace -r '=.*' '=' -- $current)
            end
            set -l begun (string replace -r '^--[^=]*=' '' -- $current)
            for file in (__fish_complete_path $begun)
                echo -- $before$file
            end
        else
            echo -- $line
        end
    end
end

complete -c kelp-bdf -f -a '(__kelp_bdf_complete)'
