# Completion of rosetag for fish.

set -l fields value line form scheme filter tag-uri pure-uri element-string barcode-string \
    digital-link hex words binary bits ais status message
set -l schemes sgtin-96 sgtin-198 sscc-96 sgln-96 sgln-195 grai-96 grai-170 giai-96 giai-202 \
    gsrn-96 gsrnp-96 gdti-96 gdti-113 gdti-174 cpi-96 cpi-var sgcn-96 gid-96 usdod-96 adi-var \
    itip-110 itip-212 cpi+ grai+ sgln+ itip+ gsrn+ gsrnp+ gdti+ sgtin+ sgcn+ sscc+ giai+ dsgtin+
set -l lines '__fish_seen_subcommand_from decode encode; and not __fish_seen_subcommand_from ai'
set -l ai '__fish_seen_subcommand_from ai'
set -l encode '__fish_seen_subcommand_from encode; and not __fish_seen_subcommand_from ai'

complete -c rosetag -f
complete -c rosetag -s h -l help -d 'Show the help'
complete -c rosetag -n __fish_use_subcommand -l version -d 'Show the version'
complete -c rosetag -n __fish_use_subcommand -a decode -d 'Show a value in all its forms'
complete -c rosetag -n __fish_use_subcommand -a encode -d 'Make the bits of a tag'
complete -c rosetag -n __fish_use_subcommand -a explain -d 'Show the bits field by field'
complete -c rosetag -n __fish_use_subcommand -a ai -d 'The bits of a single AI value'
complete -c rosetag -n __fish_use_subcommand -a tid -d 'Tell what a TID says'
complete -c rosetag -n __fish_use_subcommand -a schemes -d 'List the 34 tag schemes'
complete -c rosetag -n "not __fish_use_subcommand" -l json -d 'Write a JSON object'

complete -c rosetag -n $lines -l barcode -d 'A value without a mark is a barcode string'
complete -c rosetag -n $lines -l strict -d 'Take links as they are, stop at the first failure'
complete -c rosetag -n $lines -l gcp-length -x -a '6 7 8 9 10 11 12' -d 'Digits of the GS1 company prefix'
complete -c rosetag -n $lines -l to -x -a "$fields" -d 'Write this field'
complete -c rosetag -n $lines -l fields -x -a "(__fish_complete_list , 'string split \" \" \"$fields\"')" -d 'Write these fields'
complete -c rosetag -n $lines -l input -r -F -d 'Read this file'
complete -c rosetag -n $lines -l column -x -d 'The values stand in this column'
complete -c rosetag -n $lines -l delimiter -x -d 'What stands between the cells'
complete -c rosetag -n $lines -l no-header -d 'The table has no line of column names'
complete -c rosetag -n $lines -l errors -r -F -d 'Write lines that fail here'
complete -c rosetag -n $lines -l jobs -x -d 'Convert on so many threads'
complete -c rosetag -n $lines -l unbuffered -d 'Write each line as soon as it is converted'
complete -c rosetag -n $lines -l quiet -d 'No summary and no progress'
complete -c rosetag -n '__fish_seen_subcommand_from decode' -l raw -d 'Write separators as character 29'

complete -c rosetag -n $encode -l scheme -x -a "$schemes" -d 'The tag scheme'
complete -c rosetag -n $encode -l filter -x -d 'The filter value'
complete -c rosetag -n '__fish_seen_subcommand_from encode' -l encoding -x -a 'auto integer hex-upper hex-lower base64url iso646 code40' -d 'How texts stand in the bits'

complete -c rosetag -n "$ai; and not __fish_seen_subcommand_from encode decode" -a 'encode decode'
complete -c rosetag -n "$ai; and __fish_seen_subcommand_from encode" -l with-code -d 'Begin with the code of the AI'
complete -c rosetag -n "$ai; and __fish_seen_subcommand_from decode" -l ai -x -d 'The bits are of this AI'
