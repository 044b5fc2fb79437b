# Completion for fish: qorn and its scripts.

function __qorn_files
    __fish_complete_suffix .vhd .vhdl
end

for command in qorn qorn-check qorn-fix git-qorn qorn-settle
    complete -c $command -f
    complete -c $command -s h -d 'Print the usage'
    complete -c $command -s c -r -F -d 'Take the settings from this file alone'
end
for command in qorn qorn-check qorn-fix git-qorn
    complete -c $command -a '(__qorn_files)'
end
for command in qorn qorn-settle
    complete -c $command -s k -d 'Keep the indentation of the first line'
    complete -c $command -s t -x -a '2 3 4 8' -d 'Tab distance of the input'
end
complete -c qorn -s v -d 'Print the version'
complete -c qorn-check -s d -d 'Print diffs'
complete -c git-qorn -s l -d 'Format only the changed lines'
complete -c git-qorn -s n -d 'Change nothing, print the names'
