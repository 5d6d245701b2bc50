# Reads buttons.tsv and writes one line per picture for fill.awk:
# output name, template, then KEY=VALUE fields, all separated by tabs.
BEGIN { FS = OFS = "\t" }
/^#/ || NF < 6 { next }
{
  w = $2; h = $3; menu = w > 200
  seen = NF < 7 ? h : $7  # a button may reach below the window
  put("U", $6 == "U" ? 0 : 1)
  put("D", $6 == "U" ? 1 : 0)
}
function put(suffix, pressed,    danger, fw, fh, is, fs, tx, ix, shine, extra, s) {
  fw = w - 5; fh = seen - 4
  is = menu ? 26 : 20; ix = menu ? 22 : 10
  fs = menu ? 17 : 12; tx = menu ? 64 : 35
  shine = pressed ? sprintf("M3 1.5H%s", fw - 2) : sprintf("M4 1.5H%s", fw - 3)
  extra = ""
  danger = $1 == "RESET_BTU"  # interrupts the picture: no entry of a menu
  if (menu && !danger) extra = sprintf("<path d=\"M%s %sl5.5 6-5.5 6\" fill=\"none\" stroke=\"%s\" stroke-width=\"2\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/>", w - 26, seen / 2 - 6, pressed ? "#ffffff" : "#9fb0bf")
  s = $1 "_" suffix OFS "button.svg.in" OFS "W=" w OFS "H=" h OFS "BACK=" (menu ? "#f0f0f0" : "url(#rail)") OFS "FW=" fw OFS "FH=" fh
  s = s OFS "FACE1=" (pressed ? (danger ? "#7d1f18" : "#07525c") : danger ? "#8a3b34" : "#4a5866") OFS "FACE2=" (pressed ? (danger ? "#9c2c22" : "#0a6e7b") : danger ? "#63231e" : "#333f4b")
  s = s OFS "RIM=" (pressed ? (danger ? "#4d110c" : "#043840") : danger ? "#471813" : "#27313b") OFS "SHINE=" shine OFS "SHINECOL=" (pressed ? (danger ? "#470f0a" : "#033037") : danger ? "#b0655e" : "#66778a")
  s = s OFS "BAR=" (pressed ? "#ffb84d" : danger ? "#ffb84d" : "#35b5c4") OFS "BARY=" 8 OFS "BARH=" seen - 19
  s = s OFS "DY=" (pressed ? 1 : 0) OFS "IX=" ix OFS "IY=" (seen - is) / 2 OFS "IS=" is / 24 OFS "INK=" (pressed ? "#ffffff" : danger ? "#ffd9a0" : "#7fdbe6")
  s = s OFS "ICON=" $4 OFS "TX=" tx OFS "TY=" seen / 2 + fs * 0.36 OFS "FS=" fs OFS "FWT=bold" OFS "CAPTION=" $5 OFS "EXTRA=" extra
  print s
}
