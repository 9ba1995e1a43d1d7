;;; Drives the client of Emacs: opens an input, waits for findings, mends one, lays it out, saves.
;;; -*- lexical-binding: t; -*-

(require 'flymake)
(unless (require 'eglot nil t)
  (princ "emacs: skipped, there is no eglot\n")
  (kill-emacs 0))
(load (concat (getenv "KELP_SOURCE") "/editors/emacs/bdf-mode.el") nil t)
(setq bdf-server-command (list (getenv "KELP_BDF") "lsp")
      eglot-sync-connect 20
      make-backup-files nil
      create-lockfiles nil)

(defun test-check (ok what)
  (unless ok
    (princ (format "emacs: %s\n" what))
    (kill-emacs 1)))

(defun test-wait (ready what)
  (let ((end (+ (float-time) 20)))
    (while (and (not (funcall ready)) (< (float-time) end))
      (accept-process-output nil 0.05))
    (test-check (funcall ready) what)))

(defun test-messages ()
  (mapcar #'flymake-diagnostic-text (flymake-diagnostics)))

(with-temp-file "one.inp"
  (insert "$scf\n  chrage\n    1\nguess\natom\n$end\n"))
(find-file "one.inp")
(test-check (eq major-mode 'bdf-mode) (format "the mode is %s" major-mode))
(font-lock-ensure)
(goto-char (point-min))
(test-check (eq (get-text-property (point) 'face) 'font-lock-function-name-face) "no colours")
(apply #'eglot--connect (eglot--guess-contact))
(test-wait #'eglot-managed-p "the server did not start")
(flymake-start)
(test-wait (lambda () (cl-some (lambda (text) (string-match-p "chrage" text)) (test-messages)))
           (format "the slip is not told: %S" (test-messages)))

(goto-char (point-min))
(search-forward "chrage")
(let* ((server (eglot--current-server-or-lose))
       (range (list :start (eglot--pos-to-lsp-position) :end (eglot--pos-to-lsp-position)))
       (actions (jsonrpc-request server :textDocument/codeAction
                                 (list :textDocument (eglot--TextDocumentIdentifier)
                                       :range range :context '(:diagnostics []))))
       (mended (cl-find "write 'charge'" (append actions nil)
                        :key (lambda (action) (plist-get action :title)) :test #'equal)))
  (test-check mended "the fix is not offered")
  (eglot--apply-workspace-edit (plist-get mended :edit)))
(eglot-format-buffer)
(save-buffer)
(test-check (equal (with-temp-buffer (insert-file-contents "one.inp") (buffer-string))
                   "$scf\n  charge\n    1\n  guess\n    atom\n$end\n")
            (buffer-string))
(eglot-shutdown (eglot--current-server-or-lose))
(princ "emacs: all well\n")
