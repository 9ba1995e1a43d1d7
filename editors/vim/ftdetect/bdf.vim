" Inputs of BDF. Other programs have files of these names, too, so that only one which looks like an
" input of BDF becomes one.

function! s:Detect()
  if did_filetype()
    return
  endif
  for l:line in getline(1, 100)
    if l:line =~? '^\s*\$\%(compass\|xuanyuan\|scf\|tddft\|bdfopt\|resp\|grad\|mp2\|mcscf\|xianci\|traint\|localmo\|autofrag\|nmr\)\>'
          \ || l:line =~? '^#!.*\.bdf\s*$'
      setfiletype bdf
      return
    endif
  endfor
endfunction

augroup bdf_filetype
  autocmd!
  autocmd BufNewFile,BufRead *.inp,*.bdf call s:Detect()
augroup END
