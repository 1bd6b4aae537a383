# Turns the headers' plain comments into Doxygen's, and what Doxygen would take for its own marks into characters.
/SPDX-License-Identifier:/s/.*//
# Comments that stand alone:
/^ *\/\//{
  s/([\\<>@#&$%])/\\\1/g
  s/"/\&quot;/g
  s/\/\//\/\/\//
  b
}
# Comments after code:
/^[^"]*[^" ] *\/\/ /{
  s/\/\/ /\/\/\/< /
  b
}
# Comments of C over more than one line, in which code may stand; then the marks of all.
/^ *\/\*.*\*\//! {
  /^ *\/\*/,/\*\//{
    s/([\\<>@#&$%])/\\\1/g
    s/"/\&quot;/g
  }
}
s/^\/\* /\/** /
s/([;0-9)]  *)\/\* /\1\/**< /
