# cmake -DFROM=art.rc -DTO=bench_art.rc -P BenchArt.cmake: the lines of the icon and of the fronts in
# twice their size.
file(STRINGS ${FROM} lines REGEX "(^[0-9]+ ICON )|(^\"?PANEL_BMP_[0-9]+\"? PNG2X )")
list(JOIN lines "\n" text)
file(WRITE ${TO} "${text}\n")
