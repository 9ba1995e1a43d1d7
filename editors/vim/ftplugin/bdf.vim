" Inputs of BDF: comments, folds, :make.

if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal comments=:# commentstring=#\ %s
setlocal shiftwidth=2 softtabstop=2 expandtab
setlocal foldmethod=syntax foldlevel=99
if executable('kelp-bdf')
  compiler kelp-bdf
endif

let b:undo_ftplugin = 'setlocal comments< commentstring< shiftwidth< softtabstop< expandtab<'
      \ . ' foldmethod< foldlevel< makeprg< errorformat<'
