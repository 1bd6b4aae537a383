# SPDX-License-Identifier: MIT
# Completion of pageslice's command line for fish.
complete -c pageslice -s t -l title -d 'The title'
complete -c pageslice -s l -l links -d 'Links with their texts'
complete -c pageslice -s i -l images -d 'Images with their alternative texts'
complete -c pageslice -s e -l items -d 'Texts of list items'
complete -c pageslice -s c -l cells -d 'Texts of table cells'
complete -c pageslice -s x -l text -d 'The plain text'
complete -c pageslice -s a -l all -d 'All of these'
complete -c pageslice -l files0-from -r -F -d 'Names of pages, each ended by NUL'
complete -c pageslice -s b -l base -x -d "The page's URL"
complete -c pageslice -s r -l rules -x -a 'classic standard' -d 'How pages are read'
complete -c pageslice -s E -l encoding -x -a 'utf-8 windows-1252 iso-8859-1 shift_jis gbk' -d "The pages' encoding"
complete -c pageslice -s P -l jobs -x -a '1 2 4 8 16' -d 'Pages at once'
complete -c pageslice -s j -l json -d 'One JSON object for each page'
complete -c pageslice -s s -l stream -d 'JSON lines in, JSON lines out'
complete -c pageslice -s A -l annotate -r -F -d 'A page that shows FILE with its slices'
complete -c pageslice -s n -l count -d 'Only how many there are'
complete -c pageslice -s d -l decode -d 'Bare lines without markup and references'
complete -c pageslice -s H -l with-filename -d "The file's name before each bare line"
complete -c pageslice -s 0 -l null -d 'End bare lines by NUL'
complete -c pageslice -l color -x -a 'auto always never' -d 'Colours'
complete -c pageslice -s h -l help -d 'Show help'
complete -c pageslice -s V -l version -d 'Show the version'
