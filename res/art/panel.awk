# Reads modules.tsv, brands.tsv and panels.tsv and lays out each front panel;
# writes one line per picture for fill.awk.  Parts are put between LEFT and RIGHT with equal
# gaps of at most GAPMAX; what is left over becomes a ventilation grille.
BEGIN { FS = OFS = "\t"; LEFT = 168; RIGHT = 533; GAPMAX = 9; CY = 33; Q = "\"" }
/^#/ { next }
FILENAME ~ /modules/ { width[$1] = $2; next }
FILENAME ~ /brands/ { for (i = 2; i <= 11; i++) brand[$1, i] = $i; next }
{
  n = split($5, part, " "); total = 0; k = 0
  for (i = 1; i <= n; i++) {
    if (part[i] == ")" || part[i] ~ /^\(/) continue
    p = index(part[i], ":"); type[i] = p ? substr(part[i], 1, p - 1) : part[i]; label[i] = p ? substr(part[i], p + 1) : ""
    gsub(/_/, " ", label[i])
    if (!(type[i] in width)) { print "panel.awk: unknown part " type[i] > "/dev/stderr"; exit 1 }
    total += width[type[i]]; k++
  }
  gap = (RIGHT - LEFT - total) / (k - 1)
  if (gap < 2) print "panel.awk: picture " $1 " is too full, gap " gap > "/dev/stderr"
  if (gap > GAPMAX) gap = GAPMAX
  x = LEFT; m = ""; b = $2
  for (i = 1; i <= n; i++) {
    if (part[i] ~ /^\(/) { gx = x; gname = substr(part[i], 2); continue }
    if (part[i] == ")") { m = m group(gx, x - gap, gname); continue }
    w = width[type[i]]; m = m draw(type[i], x + w / 2, label[i]); x += w + gap
  }
  if (RIGHT - x > 22) m = m grille(x + 3, RIGHT - 6)
  none = brand[b, 5] == "none"
  print "PANEL_BMP_" $1, "panel.svg.in", "TOP=" brand[b, 6], "BOTTOM=" brand[b, 7], "EAR=" brand[b, 8], \
    "NAME=" brand[b, 2], "NS=" brand[b, 3], "LS=" brand[b, 4], "LOGO=" brand[b, 5], "NAMECOL=" brand[b, 9], \
    "LABEL=" brand[b, 10], "ACCENT=" brand[b, 11], "BADGE=" (b == "B" ? "#ffffff" : "#10161b"), \
    "NX=" (none ? 32 : 62), "MY=" (none ? 32 : 40.5), "MS=" (none ? 18 : 12), "KY=" (none ? 47 : 53.5), \
    "MODEL=" $3, "KIND=" $4, "MODULES=" m
}
function text(x, y, s) { return sprintf("<text x=%s%.1f%s y=%s%.1f%s>%s</text>", Q, x, Q, Q, y, Q, s) }
function group(a, z, s,    half, c) {
  c = (a + z) / 2; half = length(s) * 3.3 + 3
  if (half + 6 > (z - a) / 2) return text(c, 13.5, s)   # too narrow for a bracket
  return sprintf("<path d=%sM%.1f 14.5v-4H%.1fM%.1f 10.5H%.1fv4%s fill=%snone%s stroke=%s%s%s stroke-opacity=%s.6%s/>", Q, a, c - half, c + half, z, Q, Q, Q, Q, brand[b, 10], Q, Q, Q) text(c, 13.5, s) ""
}
function grille(a, z,    s, y) {
  s = ""
  for (y = 18; y <= 48; y += 6) s = s sprintf("<rect x=%s%.1f%s y=%s%d%s width=%s%.1f%s height=%s2.5%s rx=%s1.2%s fill=%s#000%s fill-opacity=%s.45%s/>", Q, a, Q, Q, y, Q, Q, z - a, Q, Q, Q, Q, Q, Q, Q, Q, Q)
  return s ""
}
function draw(t, x, s,    l, i) {
  if (t == "sep") return sprintf("<path d=%sM%.1f 9v47%s stroke=%s#000%s stroke-opacity=%s.4%s/><path d=%sM%.1f 9v47%s stroke=%s#fff%s stroke-opacity=%s.15%s/>", Q, int(x) + .5, Q, Q, Q, Q, Q, Q, int(x) + 1.5, Q, Q, Q, Q, Q)
  if (t == "lcd") {
    return sprintf("<rect x=%s%.1f%s y=%s12%s width=%s96%s height=%s41%s rx=%s3%s fill=%s#0b0e11%s/><rect x=%s%.1f%s y=%s15%s width=%s90%s height=%s35%s rx=%s1.5%s fill=%surl(#glass)%s/>", Q, x - 48, Q, Q, Q, Q, Q, Q, Q, Q, Q, Q, Q, Q, x - 45, Q, Q, Q, Q, Q, Q, Q, Q, Q, Q, Q) \
      sprintf("<g text-anchor=%sstart%s font-size=%s10.5%s fill=%s#c5f3ff%s font-family=%sCourier New, Liberation Mono, monospace%s>%s%s</g>", Q, Q, Q, Q, Q, Q, Q, Q, text(x - 41, 29.5, substr(brand[b, 2], 1, 13)), text(x - 41, 43.5, substr($3, 1, 13)))
  }
  if (t == "leds") {
    split("PWR SIG LOCK", l, " "); split("#4be07f #2a343d #2a343d", led, " "); m1 = ""
    for (i = 1; i <= 3; i++) m1 = m1 sprintf("<circle cx=%s%.1f%s cy=%s%d%s r=%s3.2%s fill=%s#0b0e11%s/><circle cx=%s%.1f%s cy=%s%d%s r=%s2.2%s fill=%s%s%s/><g text-anchor=%sstart%s>%s</g>", Q, x - 13, Q, Q, 8 + i * 12, Q, Q, Q, Q, Q, Q, x - 13, Q, Q, 8 + i * 12, Q, Q, Q, Q, led[i], Q, Q, Q, text(x - 7, 11 + i * 12, l[i]))
    return m1 ""
  }
  return sprintf("<use xlink:href=%s#m-%s%s transform=%stranslate(%.1f %.1f)%s/>", Q, t, Q, Q, x, CY, Q) text(x, 56.5, s == "" && t == "quad" ? "VIEW" : s) ""
}
