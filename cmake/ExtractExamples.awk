# Writes the examples of headers as one program:
#   awk -f ExtractExamples.awk SURROUNDINGS HEADER...
#
# An example begins below a line "// Example:" (or "// Example, with German settings:" and the like) of a header and ends
# where lines no longer begin with "//   ". Types and functions stay outside functions, all else
# becomes the body of one. A line that ends with a comment that begins with a value shows what its expression or its new
# variable is; what follows a ":" or ";" explains it:
#   vx::DayOfWeek(shift);              // 4: a Wednesday
#   vx::String line = row.GetCommatext();       // u"4711,Köln"
# Lines of comment alone below an expression are the lines of a text. A comment that begins with anything else is prose.
# An example whose first line ends with "in outline:" leaves out too much to be compiled.
#
# SURROUNDINGS holds what examples take for granted: below a line "//// platform/Files.h" what stands before that
# header's example, and below "//// ... in the function" what begins its function.

function fault(text) { print FILENAME ":" FNR ": " text | "cat >&2"; faults = 1 }

# The place of the comment of a line, behind texts and characters in quotes; 0: none.
function comment_place(text,   at, letter, quote) {
  for (at = 1; at <= length(text); ++at) {
    letter = substr(text, at, 1)
    if (quote != "") {
      if (letter == "\\") ++at
      else if (letter == quote) quote = ""
    } else if (letter == "\"" || letter == "'") quote = letter
    else if (substr(text, at, 2) == "//") return at
  }
  return 0
}
# The value at the beginning of a comment, up to a ":" or ";" outside quotes and braces; "" for prose.
function value_of(text,   at, letter, quote, depth) {
  if (text !~ /^(u?"|u'|-?[0-9]|true|false|nullptr|\{|vx::)/) return ""
  for (at = 1; at <= length(text); ++at) {
    letter = substr(text, at, 1)
    if (quote != "") {
      if (letter == "\\") ++at
      else if (letter == quote) quote = ""
    } else if (letter == "\"" || letter == "'") quote = letter
    else if (letter == "{") ++depth
    else if (letter == "}") --depth
    else if (substr(text, at, 2) == "::") ++at
    else if ((letter == ":" || letter == ";") && depth == 0) break
  }
  return substr(text, 1, at - 1)
}
# Whether a line begins what stands outside functions: a type, a variable for the whole program, or a function.
function is_outside(text) {
  if (text ~ /^(class|struct|constinit|template|enum|namespace) ?/) return 1
  return text ~ /^[A-Za-z_][A-Za-z0-9_:<>*& ]* [A-Za-z_]+\([^"]*\)( noexcept| const)? \{/ && text !~ /^(if|for|while|switch|else|return|do) /
}
function place() { return "#line " FNR " \"" FILENAME "\"\n" }
function shown(line, code, value) {
  ++results
  has_results = 1
  if (value ~ /^\{/) value = "std::remove_cvref_t<decltype(" code ")>" value
  return "examples::Shown(\"" FILENAME "\", " line ", " code ", " value ");\n"
}

# A line of an example that stands in its function.
function body_line(text,   at, code, value, name) {
  if (text ~ /^\/\//) {  # a line of the text that the expression before gives
    if (expression != "") {
      gsub(/["\\]/, "\\\\&", text)
      lines = lines "u\"" substr(text, 4) "\\n\" "
    }
    return
  }
  end_expression()
  at = comment_place(text)
  code = at ? substr(text, 1, at - 1) : text
  sub(/ +$/, "", code)
  value = at ? value_of(substr(text, at + 3)) : ""
  if (value == "") {
    inside = inside place() code "\n"
    if (code ~ /^[A-Za-z][A-Za-z:.]*\(\);$/) { expression = substr(code, 1, length(code) - 1); expression_line = FNR }
    return
  }
  if (code !~ /^[^ }].*;$/ || code ~ /^(if|for|while|switch|case|return|delete) /) {
    fault("this line has no result that could be looked at: " text)
  } else if (match(code, /^[A-Za-z_][A-Za-z0-9_:<>*&, ]* [*&]*[A-Za-z_]+ = /)) {
    name = substr(code, 1, RLENGTH - 3)
    sub(/^.*[ *&]/, "", name)
    inside = inside place() code "\n" place() shown(FNR, name, value)
  } else {
    inside = inside place() shown(FNR, substr(code, 1, length(code) - 1), value)
  }
}
function end_expression() {
  if (lines != "") inside = inside shown(expression_line, expression, lines)
  expression = lines = ""
}

function begin_example() {
  in_example = 1
  outside = inside = expression = lines = ""
  is_open = has_results = 0
  ++examples
}
function end_example(   name) {
  end_expression()
  in_example = 0
  if (outside inside == "") { fault("an example without a line"); return }
  name = "example" examples
  print "namespace " name " {\nnamespace {"
  printf "%s%sauto Example() {\n%s%s}\n}\n}\n", before[FILENAME], outside, before[FILENAME " in the function"], inside
  used[FILENAME] = 1
  if (has_results) {
    ++run
    if (inside ~ /\n(if .*)?return [^;]/) fault("an example that shows results does not return any itself")
    calls = calls "  examples::Run(\"" FILENAME "\", " name "::Example);\n"
  }
}

NR == FNR {
  if (/^\/\/\/\/ /) { key = substr($0, 6); before[key] = "#line " FNR + 1 " \"" FILENAME "\"\n" }
  else if (key != "") before[key] = before[key] $0 "\n"
  else if ($0 !~ /^\/\//) print
  next
}
in_example && !/^\/\/   / { end_example() }
/^\/\/ Example.*in outline:$/ { ++skipped; next }
/^\/\/ Example[^.]*:$/ { begin_example(); next }
in_example {
  text = substr($0, 6)
  if (text !~ /^[ }]/) is_open = is_outside(text)
  if (is_open) outside = outside place() text "\n"
  else body_line(text)
}
END {
  for (key in before) {
    sub(/ in the function$/, "", key)
    if (!(key in used)) { print "surroundings for " key ", which has no example" | "cat >&2"; faults = 1 }
  }
  print "int main() {\n" calls
  printf "  return examples::Result(\"%d examples compiled, %d of them run, %d skipped\", %d);\n}\n",
    examples, run, skipped, results
  if (faults) exit 1
}
