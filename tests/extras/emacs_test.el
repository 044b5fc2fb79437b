;;; emacs_test.el --- Tests of qorn.el, run by emacs_test.sh in an empty folder  -*- lexical-binding: t; -*-

(require 'ert)
(require 'qorn)

(defmacro with-text (text place &rest body)
  "Run BODY in a buffer of TEXT, with point before the first match of PLACE."
  (declare (indent 2))
  `(with-temp-buffer
     (insert ,text)
     (goto-char (point-min))
     (search-forward ,place)
     (goto-char (match-beginning 0))
     ,@body))

(ert-deftest buffer ()
  (dolist (place '("clk" "tick" "q:out" "end E"))
    (with-text "entity E is port(\nclk:in bit;  -- tick\nq:out bit);\nend E;\n" place
      (narrow-to-region (point) (point-max))
      (qorn-buffer)
      (should (looking-at-p (substring place 0 1)))
      (widen)
      (should (string-prefix-p "ENTITY e IS\n" (buffer-string)))
      (should (string-suffix-p "\nEND e;\n" (buffer-string))))))

(ert-deftest region ()
  (with-text "process begin\na<=b;\nc<=d;\ne<=f;\nend process;\n" "c<"
    (qorn-region (point) (line-beginning-position 2))
    (should (looking-at-p "c"))
    (should (equal (buffer-string) "process begin\na<=b;\n    c <= d;\ne<=f;\nend process;\n"))))

(ert-deftest failure ()
  (dolist (case '(("qornfmt" "none.rc") ("true" nil)))
    (let ((qorn-program (car case)) (qorn-config (cadr case)))
      (with-text "a<=b;\n" "b"
        (should (string-match-p (or qorn-config "") (cadr (should-error (qorn-buffer)))))
        (should (looking-at-p "b"))
        (should (equal (buffer-string) "a<=b;\n"))))))

(ert-deftest configuration-and-saving ()
  (make-directory "project/sub" t)
  (write-region "KEYWORDCASE lower\n" nil "project/.qornrc")
  (with-current-buffer (find-file-noselect "project/sub/file.vhd")
    (qorn-on-save-mode 1)
    (insert "END E;\nx<=\"\u00e4\u00f6\u00fc\";-- \u00df\n")
    (setq buffer-file-coding-system 'latin-1-dos)
    (save-buffer)
    (should (equal (buffer-string)
                   (concat "end e;\nx <= \"\u00e4\u00f6\u00fc\";" (make-string 29 ?\s) "-- \u00df\n")))
    (erase-buffer)
    (insert "c<=d;\n")
    (let ((qorn-program "false"))
      (save-buffer))
    (should-not (buffer-modified-p))
    (should (equal (buffer-string) "c<=d;\n"))))

;;; emacs_test.el ends here
