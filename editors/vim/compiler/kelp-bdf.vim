" :make checks the input and fills the list of errors with the findings.

if exists('current_compiler')
  finish
endif
let current_compiler = 'kelp-bdf'

CompilerSet makeprg=kelp-bdf\ check\ --format=concise\ %:S
CompilerSet errorformat=%f:%l:%c:\ %t%*[a-z]:\ %m,%-G%.%#
