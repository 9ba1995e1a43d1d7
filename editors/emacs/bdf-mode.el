;;; bdf-mode.el --- Inputs of the BDF quantum-chemistry program  -*- lexical-binding: t; -*-

;; Package-Requires: ((emacs "26.1"))
;; Keywords: languages

;;; Commentary:

;; A mode for inputs of BDF: colours, comments, movement by modules, and the language server through
;; eglot:
;;
;;     (load "/path/to/bdf-mode.el")
;;     (add-hook 'bdf-mode-hook #'eglot-ensure)
;;
;; Files called *.bdf get the mode by their name, those called *.inp when they look like one:
;; other programs call theirs so, too.

;;; Code:

(defgroup bdf nil "Inputs of the BDF quantum-chemistry program." :group 'languages)

(defcustom bdf-server-command '("kelp-bdf" "lsp")
  "The command that starts the language server."
  :type '(repeat string)
  :group 'bdf)

(defconst bdf-module-regexp "^[ \t]*\\(\\$[^ \t\n#]+\\)"
  "Matches the line that begins or ends a module.")

(defconst bdf-font-lock-keywords
  `(("^[ \t]*\\(%.*\\|#!.*\\)$" 1 font-lock-preprocessor-face t)
    ("^[ \t]*\\*.*$" 0 font-lock-comment-face t)
    (,bdf-module-regexp 1 font-lock-function-name-face)
    ("^[ \t]*\\(geometry[0-9]?\\|end[ \t]*[a-z0-9]+\\|&[a-z]+\\)[ \t]*$" 1 font-lock-keyword-face)
    ("^[ \t]*\\([A-Z][a-z]?[0-9]*\\)[ \t]+[-+0-9.]" 1 font-lock-type-face)
    ("^[ \t]*\\([a-zA-Z][^ \t\n#=/]*\\)[ \t]*\\(?:#.*\\)?$" 1 font-lock-variable-name-face)
    ("\\(?:^\\|[ \t,=(]\\)\\([-+]?[0-9]+\\.?[0-9]*\\(?:[eEdD][-+]?[0-9]+\\)?\\)\\_>"
     1 font-lock-constant-face))
  "What is coloured; the language server knows more.")

(defvar bdf-mode-syntax-table
  (let ((table (make-syntax-table)))
    (modify-syntax-entry ?# "<" table)
    (modify-syntax-entry ?\n ">" table)
    (modify-syntax-entry ?$ "_" table)
    (modify-syntax-entry ?- "_" table)
    (modify-syntax-entry ?\" "." table)
    table)
  "Comments begin with a number sign; there are no strings.")

(defun bdf-looks-like-input-p ()
  "Tell whether the buffer looks like an input of BDF."
  (save-excursion
    (goto-char (point-min))
    (let ((case-fold-search t))
      (and (re-search-forward
            "^[ \t]*\\$\\(?:compass\\|xuanyuan\\|scf\\|tddft\\|bdfopt\\|resp\\|grad\\|mp2\\|mcscf\\)\\_>\\|\\`#!.*\\.bdf[ \t]*$"
            (min (point-max) 20000) t)
           t))))

;;;###autoload
(define-derived-mode bdf-mode prog-mode "BDF"
  "A mode for inputs of the BDF quantum-chemistry program."
  (setq-local comment-start "# ")
  (setq-local comment-start-skip "#+[ \t]*")
  (setq-local font-lock-defaults '(bdf-font-lock-keywords nil t))
  (setq-local imenu-generic-expression `((nil ,bdf-module-regexp 1)))
  (setq-local indent-tabs-mode nil)
  (setq-local outline-regexp "[ \t]*\\$"))

(add-to-list 'auto-mode-alist '("\\.bdf\\'" . bdf-mode))
(add-to-list 'magic-mode-alist
             (cons (lambda ()
                     (and buffer-file-name
                          (string-match-p "\\.inp\\'" buffer-file-name)
                          (bdf-looks-like-input-p)))
                   'bdf-mode))

(defvar eglot-server-programs)
(with-eval-after-load 'eglot
  (add-to-list 'eglot-server-programs
               (cons 'bdf-mode (lambda (&rest _) bdf-server-command))))

(provide 'bdf-mode)

;;; bdf-mode.el ends here
