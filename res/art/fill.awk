# Fills templates.  Input lines: output name, template, KEY=VALUE ... (tabs between).
# Variables: art = folder of the templates, out = folder for the SVG files.
# @KEY@ is replaced by its value; @ICONS@ by the file icons.svg.in.
function slurp(f,    t, l) { t = ""; while ((getline l < (art "/" f)) > 0) t = t l "\n"; close(art "/" f); return t }
# Plain-text replacement (sub() would treat & and \ in the value specially).
function rep(t, k, v,    r, p) {
  r = ""; k = "@" k "@"
  while ((p = index(t, k)) > 0) { r = r substr(t, 1, p - 1) v; t = substr(t, p + length(k)) }
  return r t
}
BEGIN { FS = "\t" }
/^#/ || NF < 2 { next }
{
  if (!($2 in tpl)) { tpl[$2] = slurp($2); if (tpl[$2] == "") { print "fill.awk: cannot read " $2 > "/dev/stderr"; exit 1 } }
  t = rep(tpl[$2], "ICONS", (icons == "" ? icons = slurp("icons.svg.in") : icons))
  for (i = 3; i <= NF; i++) { p = index($i, "="); t = rep(t, substr($i, 1, p - 1), substr($i, p + 1)) }
  f = out "/" $1 ".svg"; printf "%s", t > f; close(f)
}
