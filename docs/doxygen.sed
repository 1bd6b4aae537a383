# Turns the headers' plain comments into Doxygen's, and what Doxygen would take for its own marks into characters.
# Comments that stand alone:
/^ *\/\//{
  s/([\\<>@#&$%])/\\\1/g
  s/"/\&quot;/g
  s/\/\//\/\/\//
  b
}
# Comments behind code:
/^[^"]*[^" ] *\/\/ /{
  s/\/\/ /\/\/\/< /
  b
}
# Comments of C, which hold nothing of Doxygen's.
s/^\/\* /\/** /
s/([;0-9)]  *)\/\* /\1\/**< /
