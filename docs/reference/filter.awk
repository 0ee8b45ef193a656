# Shows Doxygen a header as its reader sees it: the opening paragraph is about the file, and what
# only serves the library's own machinery is left out. Lines keep their numbers.

# The opening paragraph, from the blank line above it to the one below.
NR == 2 && /^$/ { print "/// @file"; isOpening = 1; next }
isOpening && /^\/\// { print "/" $0; next }
isOpening { isOpening = 0 }

# Tables of fields and cases, hashes and deduction guides.
hiding { print ""; if (/^}/) hiding = 0; next }
held != "" {
  isTable = held == "template <>"
  isHash = /^struct std::hash</
  isGuide = /^[A-Z][A-Za-z]*\(.*\) -> .*;$/
  print isTable || isHash || isGuide ? "" : held
  held = ""
  if (isTable || isHash || isGuide) {
    print ""
    hiding = !isGuide && !/}/
    next
  }
}
/^template .*>$/ { held = $0; next }

# Equality of all fields.
/^ *friend .*= default;$/ { print ""; next }

{ print }
