# What Doxygen reads. Of a header: copies, assignments and overridden operations of the standard
# library say by themselves what they do, so the headers do not. Of a page of the guide: headings get
# anchors, which links name; those of Doxygen are one set for all pages. Line numbers stay.
function anchor(page, text) {
  text = tolower(text)
  gsub(/[^a-z0-9_ -]/, "", text)
  gsub(/ /, "-", text)
  return page "-" text
}

FNR == 1 {
  isPage = FILENAME ~ /\.md$/
  page = FILENAME
  sub(/.*\//, "", page)
  sub(/\.md$/, "", page)
}
isPage && /^```/ { inBlock = !inBlock }
isPage && !inBlock {
  if (/^##+ /) {
    text = $0
    sub(/^#+ /, "", text)
    $0 = $0 " {#" anchor(page, text) "}"
  } else if (/^# / && page != "README") {
    $0 = $0 " {#guide_" page "}"
  }
  while (match($0, /\]\([a-z]*(\.md)?#[a-z0-9-]+\)/)) {
    link = substr($0, RSTART + 2, RLENGTH - 3)
    split(link, parts, "#")
    target = parts[1] == "" ? page : substr(parts[1], 1, length(parts[1]) - 3)
    $0 = substr($0, 1, RSTART + 1) "@ref " target "-" parts[2] substr($0, RSTART + RLENGTH - 1)
  }
}
isPage { gsub(/\]\(\.\.\/\.\.\//, "](../../../") }  # files of the project, from build/docs/html
isPage { print; next }

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
