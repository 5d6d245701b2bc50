# Reads rail.tsv and writes one line per picture for fill.awk: the rail, the marks of the pages, and the
# dots that say which of its sub-pages a page shows.
BEGIN {
  FS = OFS = "\t"
  print "RAIL", "rail.svg.in", "H=310", "CONTENT="
  for (count = 2; count <= 3; ++count) for (current = 1; current <= count; ++current) dots(current, count)
}
/^#/ || NF < 2 { next }
{
  print $1, "rail.svg.in", "H=48", "CONTENT=<g transform=\"translate(39 8) scale(1.3333)\" color=\"#4fb9c6\"><use xlink:href=\"#" $2 "\" fill=\"none\" stroke=\"currentColor\" stroke-width=\"1.6\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/></g>"
}
function dots(current, count,    i, x, content) {
  content = ""
  for (i = 1; i <= count; ++i) {
    x = 55 + (i - (count + 1) / 2) * 13
    content = content sprintf("<circle cx=\"%s\" cy=\"7\" r=\"%s\" fill=\"%s\" stroke=\"%s\" stroke-width=\"1.4\"/>", x, i == current ? 3.8 : 3.3, i == current ? "#4fc7d6" : "none", i == current ? "#4fc7d6" : "#7b8894")
  }
  print "DOTS_" current "_OF_" count, "rail.svg.in", "H=14", "CONTENT=" content
}
