# Says how much of the library the tests reach, lists the rest, and fails where that is too much.
#
#   awk -f script/coverage-figures.awk -v root=DIRECTORY script/coverage-exclusions SUMMARY LINES
#
# SUMMARY is what `llvm-cov report` prints, LINES what `llvm-cov show -show-branches=count -show-mcdc` does.
# A line, an outcome of a condition, or a condition that decides by itself counts once: it is reached if
# any instance of its template reaches it. What stands in an excluded line is left out, and the whole of a function where its opening line is excluded;
# an exclusion that leaves nothing out is a fault.

BEGIN {
  goals["lines", "core"] = 100
  goals["branches", "core"] = 100
  goals["MC/DC", "core"] = 100
}

FNR == 1 { ++input }

# "files: text", the files a pattern of the shell with no other sign than *.
input == 1 && /^[^#]/ {
  names[++nameCount] = $0
  at = index($0, ": ")
  files[nameCount] = substr($0, 1, at - 1)
  gsub(/\./, "[.]", files[nameCount])
  gsub(/\*/, ".*", files[nameCount])
  texts[nameCount] = substr($0, at + 2)
}

input == 2 && $1 ~ /[.](h|cpp)$/ {
  total["functions", areaOf($1)] += $2
  reached["functions", areaOf($1)] += $2 - $3
}

input < 3 { next }

/^\/.*:$/ {
  finishLine()
  file = substr($0, length(root) + 2, length($0) - length(root) - 2)
}

/^ *[0-9]+\|/ {
  finishLine()
  split($0, parts, "|")
  number = parts[1] + 0
  text = substr($0, length(parts[1] parts[2]) + 3)
  gsub(/ /, "", parts[2])
  count("lines", "", parts[2])
}

/Branch \([0-9:]+\): \[True: / {
  split($0, parts, /[][(), ]+/)  # nothing, "|", "Branch", place, ":", "True:", count, "False:", count
  count("branches", parts[4] "T", parts[7])
  count("branches", parts[4] "F", parts[9])
}

/MC\/DC Decision Region \(/ { decision = $0 }

/C[0-9]+-Pair: (not )?covered/ {
  split($0, parts, /[-| :]+/)  # nothing, the condition, "Pair", "covered" or "not"
  count("MC/DC", decision parts[2], parts[4] == "covered")
}

END {
  finishLine()
  for (i = 1; i <= nameCount; ++i)
    if (!uses[i]) fault("needless exclusion: " names[i])
  print "the core:"
  reportAll("core")
  print "session, review and drawing:"
  reportAll("above")
  exit isFaulty
}

# The libraries above the core are counted by themselves.
function areaOf(name) {
  return name ~ /(^|\/)(session|review|drawing)(\/|[.]h)/ ? "above" : "core"
}

# Notes one thing of the present line. One without a count holds no code.
function count(kind, place, times) {
  if (times == "") return
  kinds[kind, place] = kind
  if (times != "0") isReached[kind, place] = 1
}

# Adds up what has been noted of a line that is complete.
function finishLine(   thing, kind, area, i, missed, message) {
  area = areaOf(file)
  if (!inFunction) {
    excluded = 0
    for (i = nameCount; i > 0; --i)
      if (file ~ "^" files[i] "$" && index(text, texts[i])) excluded = i
  }
  inFunction = excluded && (inFunction || text ~ /{$/) && text != "}"
  for (thing in kinds) {
    kind = kinds[thing]
    if (thing in isReached) {
      ++reached[kind, area]
      ++total[kind, area]
    } else if (excluded) {
      ++uses[excluded]
      ++leftOut[kind, area]
    } else {
      ++total[kind, area]
      ++missed[kind]
    }
  }
  for (kind in missed) message = message ", " kind " " missed[kind]
  if (message) print "not reached: " file ":" number ": " substr(message, 3) ": " text
  delete kinds
  delete isReached
  text = ""
}

function reportAll(area) {
  report("functions", area)
  report("lines", area)
  report("branches", area)
  report("MC/DC", area)
}

function report(kind, area,   percent) {
  percent = 100 * reached[kind, area] / total[kind, area]
  printf "%-10s %6d of %6d %7.2f %%", kind, reached[kind, area], total[kind, area], percent
  print leftOut[kind, area] ? ", without " leftOut[kind, area] " excluded" : ""
  if (percent < goals[kind, area]) fault(kind ": less than " goals[kind, area] " %")
}

function fault(message) {
  print message
  isFaulty = 1
}
