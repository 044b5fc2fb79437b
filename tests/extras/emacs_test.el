;;; emacs_test.el --- Tests of qorn.el, run by emacs_test.sh in an empty folder  -*- lexical-binding: t; -*-

(require 'ert)
(require 'qorn)

(defconst raw "entity E is port(\nclk:in bit;  -- tick\nq:out bit);\nend E;\n\narchitecture A of E is begin
process(clk) begin if clk='1' then q<='0'; end if; end process;\nend A;\n")

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
  (dolist (place '("clk" "tick" "q:out" "process" "then" "end A"))
    (with-text raw place
      (qorn-buffer)
      (should (string-prefix-p "ENTITY e IS\n" (buffer-string)))
      (should (string-suffix-p "\nEND a;\n" (buffer-string)))
      (should (looking-at-p (substring place 0 1)))
      (let ((neat (buffer-string)) (place (point)))
        (qorn-buffer)
        (should (equal (list neat place) (list (buffer-string) (point)))))))
  (with-text "a<=b;\nc<=d;\n" "c"
    (narrow-to-region (point) (point-max))
    (qorn-buffer)
    (should (equal (buffer-string) "c <= d;\n"))
    (widen)
    (should (equal (buffer-string) "a <= b;\nc <= d;\n"))))

(ert-deftest region ()
  (dolist (end '("f" "g"))
    (with-text "a<=b;\n        c<=d;\n        e<=f;\ng<=h;\n" "d"
      (qorn-region (point) (save-excursion (search-forward end) (match-beginning 0)))
      (should (looking-at-p "d"))
      (should (equal (buffer-string) "a<=b;\n        c <= d;\n        e <= f;\ng<=h;\n")))))

(ert-deftest region-ends-in-a-statement ()
  (with-text "x<=\nr;\n" "x"
    (qorn-region (point) (1+ (point)))
    (should (equal (buffer-string) "x <=\nr;\n"))))

(ert-deftest failure ()
  (let ((qorn-config "none.rc"))
    (with-text raw "tick"
      (should (string-match-p "none\\.rc" (cadr (should-error (qorn-buffer)))))
      (should (looking-at-p "tick"))
      (should (equal (buffer-string) raw)))))

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
    (should (equal (buffer-string) "c<=d;\n"))
    (qorn-on-save-mode 0)
    (let ((qorn-directory nil))
      (erase-buffer)
      (insert "end;\n")
      (qorn-buffer)
      (should (equal (buffer-string) "END;\n")))
    (set-buffer-modified-p nil)))

;;; emacs_test.el ends here
