;;; qorn.el --- Format VHDL by the program qornfmt  -*- lexical-binding: t; -*-

;; Version: 2.5
;; Package-Requires: ((emacs "26.1"))
;; Keywords: languages, tools
;; SPDX-License-Identifier: MIT

;;; Commentary:

;; `qorn-buffer' formats the buffer, `qorn-region' what touches the lines of the region, and `qorn-on-save-mode' formats
;; before the buffer is saved:
;;
;;   (require 'qorn)
;;   (add-hook 'vhdl-mode-hook #'qorn-on-save-mode)
;;
;; Point and marks stay at their text.  Where the program fails, the buffer stays as it was.  The configuration is the one
;; that applies to the file: the nearest .qornrc in its folder or above, unless $QORNRC names others.

;;; Code:

(require 'subr-x)

(defgroup qorn nil
  "Formatting of VHDL by qornfmt."
  :group 'languages)

(defcustom qorn-program "qornfmt"
  "The program."
  :type 'file)

(defcustom qorn-config nil
  "A configuration in place of those that the program finds, or nil."
  :type '(choice (const :tag "Search" nil) file)
  :safe #'stringp)

;; Formatting moves blanks, draws out frames and starts comments anew, but leaves the number of all other characters.
;; So a place is the number of those before it.
(defconst qorn--letter "[^ \t\n=*-]")

(defun qorn--replace (new)
  "Put the text of the buffer NEW in place of the current one's.
Markers stay about where they are, and point exactly."
  (let ((before (how-many qorn--letter (point-min) (point)))
        (between (not (looking-at-p qorn--letter))))
    (replace-buffer-contents new)
    (unless (and (= before (how-many qorn--letter (point-min) (point)))
                 (or between (looking-at-p qorn--letter)))
      (goto-char (point-min))
      (when (re-search-forward qorn--letter nil 'move (1+ before))
        (goto-char (match-beginning 0))))))

(defun qorn--arguments (options)
  "Return the arguments of the program: OPTIONS and those of the buffer."
  (append options
          (and qorn-config (list "-c" (expand-file-name qorn-config)))
          (and buffer-file-name (list "--stdin-filename" (file-local-name buffer-file-name)))
          (list "-")))

(defun qorn--format (options)
  "Format the buffer by the program with OPTIONS; show what it reports.
Signal an error, and change nothing, if the program fails."
  (save-restriction
    (widen)
    (let* ((coding (coding-system-change-eol-conversion (or buffer-file-coding-system 'utf-8) 'unix))
           (coding-system-for-read coding)
           (coding-system-for-write coding)
           (target (generate-new-buffer " *qorn*"))
           (errors (make-temp-file "qorn")))
      (unwind-protect
          (let* ((status (apply #'call-process-region (point-min) (point-max) qorn-program nil
                                (list target errors) nil (qorn--arguments options)))
                 (messages (with-temp-buffer
                             (insert-file-contents errors)
                             (string-trim (buffer-string)))))
            ;; A program that prints nothing has not formatted a text.
            (unless (and (eql status 0)
                         (or (> (buffer-size target) 0) (string-blank-p (buffer-string))))
              (error "%s failed: %s" qorn-program messages))
            (qorn--replace target)
            (unless (string-empty-p messages)
              (message "%s" messages)))
        (kill-buffer target)
        (delete-file errors)))))

;;;###autoload
(defun qorn-buffer ()
  "Format the whole buffer, whatever part of it is shown."
  (interactive "*")
  (qorn--format nil))

;;;###autoload
(defun qorn-region (beg end)
  "Format what touches the lines from BEG to END."
  (interactive "*r")
  (let ((first (line-number-at-pos beg t))
        (last (line-number-at-pos (if (> end beg) (1- end) end) t)))
    (qorn--format (list "--lines" (format "%d:%d" first last)))))

(defun qorn--before-save ()
  "Format the buffer; an error becomes a message, so that the buffer is saved."
  (condition-case problem
      (qorn--format '("-q"))
    (error (message "%s" (error-message-string problem)))))

;;;###autoload
(define-minor-mode qorn-on-save-mode
  "Format the buffer by qornfmt before it is saved."
  :lighter " Qorn"
  (if qorn-on-save-mode
      (add-hook 'before-save-hook #'qorn--before-save nil t)
    (remove-hook 'before-save-hook #'qorn--before-save t)))

(provide 'qorn)
;;; qorn.el ends here
