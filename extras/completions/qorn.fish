# Completion for fish: qornfmt, "git qorn" and qorn.

function __qorn_files
    __fish_complete_suffix .vhd .vhdl .vht
end

for command in qornfmt git-qorn qorn
    complete -c $command -f -a '(__qorn_files)'
    complete -c $command -s h -d 'Print the usage'
end
for command in qornfmt git-qorn
    complete -c $command -l check -d 'List what would change'
    complete -c $command -l diff -d 'Print what would change'
    complete -c $command -l lines -x -d 'Format only these lines, as 10:20'
    complete -c $command -l staged -d 'Format what is staged'
    complete -c $command -l changed -d 'Format what has changed since a commit'
    complete -c $command -l stdin-filename -r -F -d 'What standard input is called'
    complete -c $command -s c -l config -r -F -d 'Take the settings from this file alone'
    complete -c $command -l settings -d 'Print the settings in force'
    complete -c $command -l guess -d 'Print the settings that suit the files'
    complete -c $command -s j -l jobs -x -d 'Number of threads'
    complete -c $command -s q -l quiet -d 'Print no summaries and no warnings'
    complete -c $command -l force -d 'Format files with any suffix'
    complete -c $command -l help -d 'Print the usage'
    complete -c $command -l version -d 'Print the version'
end
complete -c qorn -s c -r -F -d 'Take the settings from this file alone'
complete -c qorn -s k -d 'Keep the indentation of the first line'
complete -c qorn -s t -x -a '2 3 4 8' -d 'Tab distance of the input'
complete -c qorn -s v -d 'Print the version'
