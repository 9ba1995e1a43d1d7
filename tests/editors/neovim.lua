-- Drives the client that Neovim has: opens inputs, looks at what the server tells, completes, mends,
-- lays out, saves. An error ends the program with its text.

local command, source = vim.env.KELP_BDF, vim.env.KELP_SOURCE

local function check(ok, what)
  if not ok then
    error(what, 2)
  end
end

local function same(got, wanted, what)
  check(vim.deep_equal(got, wanted),
    what .. ': got ' .. vim.inspect(got) .. ', wanted ' .. vim.inspect(wanted))
end

vim.opt.runtimepath:prepend(source .. '/editors/vim')
vim.opt.swapfile = false
vim.env.PATH = vim.fn.fnamemodify(command, ':h') .. ':' .. vim.env.PATH
vim.cmd('filetype off')
vim.cmd('filetype plugin on') -- once more, for what the folder adds
vim.cmd('syntax on')

local told = {} -- by URI
local client = vim.lsp.start_client({
  name = 'kelp-bdf',
  cmd = { command, 'lsp' },
  root_dir = vim.fn.getcwd(),
  handlers = {
    ['textDocument/publishDiagnostics'] = function(err, result, ctx, config)
      told[result.uri] = result.diagnostics
      vim.lsp.handlers['textDocument/publishDiagnostics'](err, result, ctx, config)
    end,
  },
})
check(client, 'the server did not start')

local function open(path)
  vim.cmd('edit! ' .. vim.fn.fnameescape(path))
  vim.lsp.buf_attach_client(0, client)
end

-- Waits for what the server tells of the text as it is now.
local function findings()
  local uri = vim.uri_from_bufnr(0)
  check(vim.wait(20000, function() return told[uri] ~= nil end, 5), 'nothing was told of ' .. uri)
  return told[uri]
end

local function after(change)
  findings()
  told[vim.uri_from_bufnr(0)] = nil
  change()
  return findings()
end

local function ask(method, params)
  local answers, err = vim.lsp.buf_request_sync(0, method, params, 20000)
  check(answers, method .. ': ' .. tostring(err))
  local answer = answers[client]
  check(answer and not answer.err, method .. ': ' .. vim.inspect(answer))
  return answer.result
end

local function at(line, character)
  return { textDocument = { uri = vim.uri_from_bufnr(0) },
    position = { line = line, character = character } }
end

local function codes(list)
  local found = {}
  for _, item in ipairs(list) do
    table.insert(found, item.code)
  end
  return found
end

local function mend_complete_and_save()
  vim.fn.writefile({ '$scf', '  chrage', '    1', 'guess', 'atom', '  gu', '$end' }, 'one.inp')
  open('one.inp')
  same(vim.bo.filetype, 'bdf', 'file type')
  check(vim.tbl_contains(codes(findings()), 'bdf.unknown_entry'), 'the slip is not told')
  check(vim.wait(5000, function() return #vim.diagnostic.get(0) > 0 end), 'nothing is shown')

  local items = ask('textDocument/completion', at(5, 4)).items
  local labels = vim.tbl_map(function(item) return item.label end, items)
  check(vim.tbl_contains(labels, 'guess'), 'guess is not offered')

  local hover = ask('textDocument/hover', at(3, 1))
  check(hover.contents.value:find('scf.guess'), 'hover: ' .. vim.inspect(hover))

  local range = { start = { line = 1, character = 2 }, ['end'] = { line = 1, character = 2 } }
  local params = { textDocument = { uri = vim.uri_from_bufnr(0) }, range = range,
    context = { diagnostics = {} } }
  local mended
  for _, action in ipairs(ask('textDocument/codeAction', params)) do
    if action.title == "write 'charge'" then
      mended = action
    end
  end
  check(mended, 'the fix is not offered')
  local left = after(function()
    vim.lsp.util.apply_workspace_edit(mended.edit, 'utf-16')
    vim.api.nvim_buf_set_lines(0, 5, 6, true, {})
  end)
  check(not vim.tbl_contains(codes(left), 'bdf.unknown_entry'), 'the slip is still told')

  local edits = ask('textDocument/formatting',
    { textDocument = { uri = vim.uri_from_bufnr(0) }, options = { tabSize = 2, insertSpaces = true } })
  vim.lsp.util.apply_text_edits(edits, vim.api.nvim_get_current_buf(), 'utf-16')
  vim.cmd('write')
  same(vim.fn.readfile('one.inp'), { '$scf', '  charge', '    1', '  guess', '    atom', '$end' },
    'the text that was saved')
end

local function type_letters_beyond_ascii()
  vim.fn.writefile({ '$scf', '  charge  # 电荷 🧪 -', '    x', '$end' }, 'two.inp')
  open('two.inp')
  local list = after(function()
    vim.api.nvim_buf_set_text(0, 1, 12, 1, 18, { '🧪氢', '    1' })
  end)
  same(vim.api.nvim_buf_get_lines(0, 0, -1, true)[3]:sub(1, 5), '    1', 'the text')
  -- What the server knows by then is what a server would that is given the text as a whole.
  local whole = vim.api.nvim_buf_get_lines(0, 0, -1, true)
  vim.fn.writefile(whole, 'three.inp')
  open('three.inp')
  same(findings(), list, 'findings after a change and of the whole text')
end

local function use_make()
  vim.fn.writefile({ '$scf', '  chrage', '$end' }, 'four.inp')
  open('four.inp')
  vim.cmd('silent make!')
  local list = vim.tbl_filter(function(item) return item.valid == 1 end, vim.fn.getqflist())
  check(#list > 0, ':make finds nothing')
  same({ list[1].lnum, list[1].col, list[1].type }, { 2, 3, 'w' }, ':make')
end

local function colour_and_fold()
  open(source .. '/examples/water-mixed.inp')
  local function group(line, column)
    return vim.fn.synIDattr(vim.fn.synID(line, column, 1), 'name')
  end
  same(group(10, 1), 'bdfModule', '$scf')
  check(group(11, 3):find('^bdfModule%d+Entry$'), 'vshift: ' .. group(11, 3))
  same(group(12, 5), 'bdfNumber', '0.3')
  same(group(5, 2), 'bdfAtom', 'an atom')
  vim.cmd('normal! zM')
  same(vim.fn.foldclosedend(10), 15, 'the fold of $scf')
end

local function open_published_inputs()
  local files = vim.fn.glob(vim.env.KELP_CORPUS .. '/*/*.inp', true, true)
  for index = 1, #files, 10 do
    open(files[index])
    local checked = vim.fn.systemlist({ command, 'check', '--format=concise', files[index] })
    same(#findings(), #checked, files[index])
    vim.cmd('bwipeout!')
  end
  return #files
end

mend_complete_and_save()
type_letters_beyond_ascii()
use_make()
colour_and_fold()
local count = open_published_inputs()
vim.lsp.stop_client(client)
check(vim.wait(5000, function() return vim.lsp.client_is_stopped(client) end), 'it does not stop')
io.stdout:write('neovim: all well; of ' .. count .. ' published inputs every tenth was opened\n')
