"""Fills the templates *.svg.in beside it from the tables *.tsv: every picture that is not drawn in a file of
its own. tools/render_art renders them."""

import os

ROUND = 'stroke-linecap="round" stroke-linejoin="round"'


class Failure(Exception):
    """What is wrong with the tables, in one line."""


def number(value):
    """As it stands in a drawing: whole, or with six digits at the most."""
    return str(int(value)) if value == int(value) else f"{value:.6g}"


def read(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        return file.read()


def rows(folder, name):
    """Those of a table, each a list of its fields."""
    for line in read(folder, name).splitlines():
        if line and not line.startswith("#"):
            yield line.split("\t")


# Each of the following yields a name, the template and what stands in it for @KEY@: numbers or texts.


def buttons(folder):
    for row in rows(folder, "buttons.tsv"):
        name, width, height, icon, caption, released = row[:6]
        seen = row[6] if len(row) > 6 else height  # a button may reach below the window
        for suffix in "UD":
            yield (f"{name}_{suffix}", "button.svg.in",
                   button(name, int(width), int(height), int(seen), icon, caption, suffix != released))


def button(name, width, height, seen, icon, caption, pressed):
    menu = width > 200
    danger = name == "RESET_BTU"  # interrupts the picture: no entry of a menu
    icon_size = 26 if menu else 20
    font_size = 17 if menu else 12
    if danger:
        faces = ("#7d1f18", "#9c2c22") if pressed else ("#8a3b34", "#63231e")
        rim, shine = ("#4d110c", "#470f0a") if pressed else ("#471813", "#b0655e")
    else:
        faces = ("#07525c", "#0a6e7b") if pressed else ("#4a5866", "#333f4b")
        rim, shine = ("#043840", "#033037") if pressed else ("#27313b", "#66778a")
    arrow = ""
    if menu and not danger:
        arrow = (f'<path d="M{width - 26} {number(seen / 2 - 6)}l5.5 6-5.5 6" fill="none" '
                 f'stroke="{"#ffffff" if pressed else "#9fb0bf"}" stroke-width="2" {ROUND}/>')
    face_width = width - 5
    return {
        "W": width, "H": height, "BACK": "#f0f0f0" if menu else "url(#rail)",
        "FW": face_width, "FH": seen - 4, "FACE1": faces[0], "FACE2": faces[1], "RIM": rim,
        "SHINE": f"M3 1.5H{face_width - 2}" if pressed else f"M4 1.5H{face_width - 3}", "SHINECOL": shine,
        "BAR": "#ffb84d" if pressed or danger else "#35b5c4", "BARY": 8, "BARH": seen - 19,
        "DY": 1 if pressed else 0,
        "IX": 22 if menu else 10, "IY": (seen - icon_size) / 2, "IS": icon_size / 24,
        "INK": "#ffffff" if pressed else "#ffd9a0" if danger else "#7fdbe6", "ICON": icon,
        "TX": 64 if menu else 35, "TY": seen / 2 + font_size * 0.36, "FS": font_size, "FWT": "bold",
        "CAPTION": caption, "EXTRA": arrow,
    }


# Parts of a front are put between these with equal gaps; what is left over becomes a ventilation grille.
LEFT = 168
RIGHT = 533
WIDEST_GAP = 9
MIDDLE = 33


def panels(folder):
    widths = {row[0]: float(row[1]) for row in rows(folder, "modules.tsv")}
    brands = {row[0]: row[1:] for row in rows(folder, "brands.tsv")}
    for picture, brand, model, kind, parts in rows(folder, "panels.tsv"):
        name, name_size, spacing, logo, top, bottom, ear, name_colour, label, accent = brands[brand]
        no_logo = logo == "none"
        yield f"PANEL_BMP_{picture}", "panel.svg.in", {
            "TOP": top, "BOTTOM": bottom, "EAR": ear, "NAME": name, "NS": name_size, "LS": spacing,
            "LOGO": logo, "NAMECOL": name_colour, "LABEL": label, "ACCENT": accent,
            "BADGE": "#ffffff" if brand == "B" else "#10161b",
            "NX": 32 if no_logo else 62, "MY": 32 if no_logo else 40.5, "MS": 18 if no_logo else 12,
            "KY": 47 if no_logo else 53.5, "MODEL": model, "KIND": kind,
            "MODULES": front(picture, parts.split(), widths, name, model, label),
        }


def front(picture, parts, widths, brand_name, model, label_colour):
    shown = []  # type and label of each part
    for part in parts:
        if part != ")" and not part.startswith("("):
            kind, _, label = part.partition(":")
            if kind not in widths:
                raise Failure(f"picture {picture} has an unknown part: {kind}")
            shown.append((kind, label.replace("_", " ")))
    gap = (RIGHT - LEFT - sum(widths[kind] for kind, _ in shown)) / (len(shown) - 1)
    if gap < 2:
        raise Failure(f"picture {picture} is too full, gap {number(gap)}")
    gap = min(gap, WIDEST_GAP)
    x = LEFT
    drawn = ""
    following = iter(shown)
    for part in parts:
        if part.startswith("("):
            group_left, group_name = x, part[1:]
        elif part == ")":
            drawn += group(group_left, x - gap, group_name, label_colour)
        else:
            kind, label = next(following)
            drawn += module(kind, x + widths[kind] / 2, label, brand_name, model)
            x += widths[kind] + gap
    if RIGHT - x > 22:
        drawn += grille(x + 3, RIGHT - 6)
    return drawn


def text(x, y, words):
    return f'<text x="{x:.1f}" y="{y:.1f}">{words}</text>'


def group(left, right, name, colour):
    centre = (left + right) / 2
    half = len(name) * 3.3 + 3
    if half + 6 > (right - left) / 2:
        return text(centre, 13.5, name)  # too narrow for a bracket
    return (f'<path d="M{left:.1f} 14.5v-4H{centre - half:.1f}M{centre + half:.1f} 10.5H{right:.1f}v4" '
            f'fill="none" stroke="{colour}" stroke-opacity=".6"/>' + text(centre, 13.5, name))


def grille(left, right):
    return "".join(f'<rect x="{left:.1f}" y="{y}" width="{right - left:.1f}" height="2.5" rx="1.2" '
                   'fill="#000" fill-opacity=".45"/>' for y in range(18, 49, 6))


def module(kind, x, label, brand_name, model):
    if kind == "sep":
        return (f'<path d="M{int(x) + .5:.1f} 9v47" stroke="#000" stroke-opacity=".4"/>'
                f'<path d="M{int(x) + 1.5:.1f} 9v47" stroke="#fff" stroke-opacity=".15"/>')
    if kind == "lcd":
        return (f'<rect x="{x - 48:.1f}" y="12" width="96" height="41" rx="3" fill="#0b0e11"/>'
                f'<rect x="{x - 45:.1f}" y="15" width="90" height="35" rx="1.5" fill="url(#glass)"/>'
                '<g text-anchor="start" font-size="10.5" fill="#c5f3ff" '
                'font-family="Courier New, Liberation Mono, monospace">'
                + text(x - 41, 29.5, brand_name[:13]) + text(x - 41, 43.5, model[:13]) + "</g>")
    if kind == "leds":
        return "".join(
            f'<circle cx="{x - 13:.1f}" cy="{y}" r="3.2" fill="#0b0e11"/>'
            f'<circle cx="{x - 13:.1f}" cy="{y}" r="2.2" fill="{colour}"/>'
            f'<g text-anchor="start">{text(x - 7, y + 3, name)}</g>'
            for y, name, colour in ((20, "PWR", "#4be07f"), (32, "SIG", "#2a343d"), (44, "LOCK", "#2a343d")))
    return (f'<use xlink:href="#m-{kind}" transform="translate({x:.1f} {MIDDLE:.1f})"/>'
            + text(x, 56.5, "VIEW" if label == "" and kind == "quad" else label))


def tiles(folder):
    """The screens of the wall. U: not chosen (dimmed, grey frame); D: chosen (bright, amber frame, tick)."""
    for row in rows(folder, "tiles.tsv"):
        side, width, height = map(int, row[:3])
        for index in range(side * side):
            for state in row[3]:
                yield (f"WND{side}X{side}_{index:02}_{state}", "tile.svg.in",
                       tile(side, width, height, index, state == "D"))


def tile(side, width, height, index, chosen):
    frame = 4 if chosen else 3
    across, down = 480 / side, 300 / side
    radius = min(height * 0.215, 44)
    font_size = radius * (1.05 if index > 8 else 1.2)
    mark = ""
    if chosen:
        size = 10 if height > 90 else 8
        mark = (f'<g transform="translate({width - size - 6} {size + 6})">'
                f'<circle r="{size}" fill="#ffb020" stroke="#10161b"/>'
                '<path d="M-4 .3-1.2 3.2 4.2-3" fill="none" stroke="#10161b" stroke-width="2.2" '
                f'{ROUND}/></g>')
    crop = (index % side * across, index // side * down, across, down)
    return {
        "W": width, "H": height, "FX": 1, "FW": width - 2, "FH": height - 2,
        "FRAME": "#ffb020" if chosen else "#4a545e",
        "SX": frame, "SW": width - 2 * frame, "SH": height - 2 * frame,
        "CROP": " ".join(map(number, crop)), "DIM": 0 if chosen else 0.15 if side == 1 else 0.5,
        "CX": width / 2, "CY": height / 2, "R": radius, "RW": 2 if radius > 20 else 1.5,
        "PLATE": "#ffb020" if chosen else "#1d2630", "INK": "#10161b" if chosen else "#ffffff",
        "FS": font_size, "TY": height / 2 + font_size * 0.36, "NO": index + 1, "MARK": mark,
    }


def rail(folder):
    """The rail, the marks of the pages, and the dots that say which of its sub-pages a page shows."""
    yield "RAIL", "rail.svg.in", {"H": 310, "CONTENT": ""}
    for count in (2, 3):
        for current in range(1, count + 1):
            yield (f"DOTS_{current}_OF_{count}", "rail.svg.in",
                   {"H": 14, "CONTENT": "".join(dot(i, current, count) for i in range(1, count + 1))})
    for name, icon in rows(folder, "rail.tsv"):
        yield name, "rail.svg.in", {
            "H": 48,
            "CONTENT": '<g transform="translate(39 8) scale(1.3333)" color="#4fb9c6">'
                       f'<use xlink:href="#{icon}" fill="none" stroke="currentColor" stroke-width="1.6" '
                       f"{ROUND}/></g>",
        }


def dot(i, current, count):
    x = number(55 + (i - (count + 1) / 2) * 13)
    radius, fill, stroke = (3.8, "#4fc7d6", "#4fc7d6") if i == current else (3.3, "none", "#7b8894")
    return f'<circle cx="{x}" cy="7" r="{radius}" fill="{fill}" stroke="{stroke}" stroke-width="1.4"/>'


def all_pictures(folder):
    """Yields name and drawing of each."""
    icons = read(folder, "icons.svg.in")
    templates = {}
    for kind in (buttons, panels, tiles, rail):
        for name, template, values in kind(folder):
            if template not in templates:
                templates[template] = read(folder, template).replace("@ICONS@", icons)
            drawing = templates[template]
            for key, value in values.items():
                drawing = drawing.replace(f"@{key}@", value if isinstance(value, str) else number(value))
            yield name, drawing
