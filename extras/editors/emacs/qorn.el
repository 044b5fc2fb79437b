;;; qorn.el --- Format VHDL by the program qorn  -*- lexical-binding: t; -*-

;; Version: 2.5
;; Package-Requires: ((emacs "26.1"))
;; Keywords: languages, tools
;; SPDX-License-Identifier: MIT

;;; Commentary:

;; `qorn-buffer' formats the buffer, `qorn-region' the lines of the region, and `qorn-on-save-mode' formats before the
;; buffer is saved:
;;
;;   (require 'qorn)
;;   (add-hook 'vhdl-mode-hook #'qorn-on-save-mode)
;;
;; Point and marks stay at their text.  Where the program fails, the buffer stays as it was.  The program runs in the
;; folder of the buffer unless `qorn-directory' says otherwise, and finds the configuration that it would find when
;; called there.

;;; Code:

(defgroup qorn nil
  "Formatting of VHDL by qorn."
  :group 'languages)

(defcustom qorn-program nil
  "The program; nil for qorn-settle if there is one, else qorn.
qorn-settle formats until nothing changes any more."
  :type '(choice (const :tag "qorn-settle or qorn" nil) file))

(defcustom qorn-config nil
  "A configuration in place of those that the program finds, or nil."
  :type '(choice (const :tag "Search" nil) file)
  :safe #'stringp)

(defcustom qorn-directory 'root
  "The folder in which the program runs, and so looks for its configuration.
`root' is the nearest folder above the buffer's with a .qornrc, or the buffer's
where there is none; nil is the buffer's; a string names a folder."
  :type '(choice (const :tag "Nearest folder with a .qornrc" root)
                 (const :tag "Folder of the buffer" nil)
                 directory))

(defun qorn--directory ()
  "Return the folder in which the program is to run."
  (or (if (stringp qorn-directory)
          qorn-directory
        (and (eq qorn-directory 'root) (locate-dominating-file default-directory ".qornrc")))
      default-directory))

(defun qorn--program ()
  "Return the name of the program."
  (or qorn-program (if (executable-find "qorn-settle") "qorn-settle" "qorn")))

;; Formatting moves blanks, draws out frames and starts comments anew, but leaves the number of all other characters.
;; So a place is the number of those before it.
(defconst qorn--letter "[^ \t\n=*-]")

(defun qorn--replace (new)
  "Put the text of the buffer NEW in place of what is visible.
Markers stay about where they are, and point exactly."
  (let ((before (how-many qorn--letter (point-min) (point)))
        (between (not (looking-at-p qorn--letter))))
    (replace-buffer-contents new)
    (unless (and (= before (how-many qorn--letter (point-min) (point)))
                 (or between (looking-at-p qorn--letter)))
      (goto-char (point-min))
      (when (re-search-forward qorn--letter nil 'move (1+ before))
        (goto-char (match-beginning 0))))))

(defun qorn--format (beg end options)
  "Format the text between BEG and END by the program with OPTIONS.
Signal an error, and change nothing, if the program fails."
  (let* ((source (current-buffer))
         (coding (coding-system-change-eol-conversion (or buffer-file-coding-system 'utf-8) 'unix))
         (coding-system-for-read coding)
         (coding-system-for-write coding)
         (arguments (append options (and qorn-config (list "-c" (expand-file-name qorn-config)))))
         (errors (make-temp-file "qorn"))
         (folder (qorn--directory))
         (lacks-line-end (not (eq (char-before end) ?\n))))
    (unwind-protect
        (with-temp-buffer
          (let* ((default-directory folder)
                 (target (current-buffer))
                 (status (with-current-buffer source
                           (let ((default-directory folder))
                             (apply #'call-process-region beg end (qorn--program) nil
                                    (list target errors) nil arguments)))))
            (unless (eql status 0)
              (erase-buffer)
              (insert-file-contents errors)
              (error "%s failed: %s" (qorn--program) (string-trim (buffer-string))))
            ;; A stretch of lines stays one, whatever the program makes of its last line end.
            (goto-char (point-max))
            (unless (or lacks-line-end (bolp))
              (insert "\n"))
            (with-current-buffer source
              (save-restriction
                (narrow-to-region beg end)
                (qorn--replace target)))))
      (delete-file errors))))

;;;###autoload
(defun qorn-buffer ()
  "Format the whole buffer, whatever part of it is shown."
  (interactive "*")
  (save-restriction
    (widen)
    (qorn--format (point-min) (point-max) nil)))

;;;###autoload
(defun qorn-region (beg end)
  "Format the lines from BEG to END and keep the indentation of the first."
  (interactive "*r")
  (let ((first (save-excursion (goto-char beg) (line-beginning-position)))
        (last (save-excursion
                (goto-char end)
                (if (and (bolp) (> end beg)) end (line-beginning-position 2)))))
    (qorn--format first last '("-k"))))

(defun qorn--before-save ()
  "Format the buffer; an error becomes a message, so that the buffer is saved."
  (condition-case problem
      (qorn-buffer)
    (error (message "%s" (error-message-string problem)))))

;;;###autoload
(define-minor-mode qorn-on-save-mode
  "Format the buffer by qorn before it is saved."
  :lighter " Qorn"
  (if qorn-on-save-mode
      (add-hook 'before-save-hook #'qorn--before-save nil t)
    (remove-hook 'before-save-hook #'qorn--before-save t)))

(provide 'qorn)
;;; qorn.el ends here
