# Reads tiles.tsv and writes one line per video wall screen for fill.awk.
# U: not chosen (dimmed, grey frame); D: chosen (bright, amber frame, tick).
BEGIN { FS = OFS = "\t" }
/^#/ { next }
{ for (i = 0; i < $1 * $1; i++) for (s = 1; s <= length($4); s++) put($1, $2, $3, i, substr($4, s, 1)) }
function put(n, w, h, i, state,    chosen, b, cw, ch, r, fs, m, k) {
  chosen = state == "D"; b = chosen ? 4 : 3; cw = 480 / n; ch = 300 / n
  r = h * 0.215; if (r > 44) r = 44; fs = r * (i > 8 ? 1.05 : 1.2)
  m = ""
  if (chosen) {
    k = h > 90 ? 10 : 8
    m = sprintf("<g transform=\"translate(%s %s)\"><circle r=\"%s\" fill=\"#ffb020\" stroke=\"#10161b\"/><path d=\"M-4 .3-1.2 3.2 4.2-3\" fill=\"none\" stroke=\"#10161b\" stroke-width=\"2.2\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/></g>", w - k - 6, k + 6, k)
  }
  print sprintf("WND%dX%d_%02d_%s", n, n, i, state), "tile.svg.in", "W=" w, "H=" h, "FX=1", "FW=" w - 2, "FH=" h - 2, \
    "FRAME=" (chosen ? "#ffb020" : "#4a545e"), "SX=" b, "SW=" w - 2 * b, "SH=" h - 2 * b, \
    "CROP=" (i % n) * cw " " int(i / n) * ch " " cw " " ch, "DIM=" (chosen ? 0 : n == 1 ? 0.15 : 0.5), \
    "CX=" w / 2, "CY=" h / 2, "R=" r, "RW=" (r > 20 ? 2 : 1.5), "PLATE=" (chosen ? "#ffb020" : "#1d2630"), \
    "INK=" (chosen ? "#10161b" : "#ffffff"), "FS=" fs, "TY=" h / 2 + fs * 0.36, "NO=" i + 1, "MARK=" m
}
