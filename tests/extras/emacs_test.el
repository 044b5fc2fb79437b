;;; emacs_test.el --- Tests of qorn.el, run by emacs_test.sh in an empty folder  -*- lexical-binding: t; -*-

(require 'ert)
(require 'qorn)

(defun test--at (text place command)
  "Call COMMAND in a buffer of TEXT with point before PLACE; return the text and point's character."
  (with-temp-buffer
    (insert text)
    (goto-char (point-min))
    (search-forward place)
    (goto-char (match-beginning 0))
    (funcall command)
    (list (buffer-string) (char-after))))

(ert-deftest formatting ()
  (dolist (place '("E i" "clk" "tick"))
    (should (equal (list "ENTITY e IS\n    PORT (\n        clk : IN bit                    -- tick\n    );\n" (aref (downcase place) 0))
                   (test--at "entity E is port(\nclk:in bit  -- tick\n);" place #'qorn-buffer))))
  (should (equal '("process begin\na<=b;\n    c <= d;\ne<=f;\n" ?c)
                 (test--at "process begin\na<=b;\nc<=d;\ne<=f;\n" "c<"
                           (lambda () (qorn-region (point) (line-beginning-position 2))))))
  (dolist (case '(("qornfmt" "none.rc") ("true" nil)))
    (let ((qorn-program (car case)) (qorn-config (cadr case)))
      (should (equal '("a<=b;\n" ?b) (test--at "a<=b;\n" "b" (lambda () (should-error (qorn-buffer)))))))))

(ert-deftest saving ()
  (make-directory "project/sub" t)
  (write-region "KEYWORDCASE lower\n" nil "project/.qornrc")
  (with-current-buffer (find-file-noselect "project/sub/file.vhd")
    (qorn-on-save-mode 1)
    (insert "END E;\nx<=\"\u00e4\u00f6\u00fc\";-- \u00df\n")
    (setq buffer-file-coding-system 'latin-1-dos)
    (save-buffer)
    (should (equal (buffer-string) (concat "end e;\nx <= \"\u00e4\u00f6\u00fc\";" (make-string 29 ?\s) "-- \u00df\n")))
    (insert "c<=d;\n")
    (let ((qorn-program "false"))
      (save-buffer))
    (should (string-suffix-p "\nc<=d;\n" (buffer-string)))
    (should-not (buffer-modified-p))))

;;; emacs_test.el ends here
