# What Doxygen reads of a header: copies, assignments and overridden operations of the standard
# library say by themselves what they do, so the headers do not. Line numbers stay.
function say(text) { sub(/^ +/, "&/** " text " */ ") }

!documented && !/\/\/\/</ {
  if (match($0, /^ +(explicit )?[A-Za-z0-9_]+\((const )?[A-Za-z0-9_]+(<U>)?&&?( [a-z]+)?\)/)) {
    split($0, words, /[( &]+/)
    name = words[2]
    if ($0 ~ "^ +" name "\\((const )?" name "&") say("Copies or moves.")
  } else if (/^ +[A-Za-z0-9_]+& operator=\(/ || /^ +QXPtr& operator=\(/) {
    say("Copies or moves.")
  } else if (/^ +bool operator!=\(/) {
    say("The contrary of ==.")
  } else if (/^ +.*\) override;$/ && !/^ {6}/) {
    say("As the standard library defines it.")
  } else if (/pos_type seekoff/) {
    say("As the standard library defines it.")
  }
}
{ print; documented = /^ *\/\/\// }
