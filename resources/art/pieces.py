"""Pieces that several drawings share, so that the pictures stay one family.

Every function returns SVG text. Lengths are pixels of the finished picture. Straight outlines lie on half pixels
(x + 0.5), so that a one-pixel stroke fills whole pixels. The light comes from the top left everywhere.
"""

INK = "#2A3F6B"        # outline of paper and of everything neutral
LINE = "#8494B5"       # body text
RED = "#C8202C"
RED_DARK = "#6E0D16"
GOLD_DARK = "#8A5200"
GREEN_DARK = "#14500E"
TEAL_DARK = "#073B57"

# name: (first colour, middle colour or None, last colour); all run from top left to bottom right.
RAMPS = {
    "paper": ("#FFFFFF", "#F6F9FE", "#BFD0EC"),
    "fold": ("#E3ECF9", None, "#9FB5DA"),
    "red": ("#FF9A8A", "#DB2F38", "#8E0F1C"),
    "gold": ("#FFF3B0", "#FFC83D", "#E08A00"),
    "green": ("#C4F59A", "#55BB33", "#22801A"),
    "blue": ("#A9D3FF", "#3F7FD6", "#173F94"),
    "teal": ("#8FF0EE", "#12A3C4", "#064E86"),
    "orange": ("#FFD38A", "#FB9226", "#C8540A"),
    "violet": ("#DDBBFF", "#8A4FC4", "#4C1F86"),
    "steel": ("#F4F7FB", "#A3AEC2", "#566480"),
    "slate": ("#8B97AE", "#3E4A63", "#161E30"),
    "board": ("#E9B878", "#B97A36", "#7C4815"),
    "glass": ("#FFFFFF", "#CDE9FC", "#7FBBEA"),
    "banner": ("#FFFFFF", "#D9E9FF", "#8FB8F0"),
    "grey": ("#FFFFFF", "#D5D8DE", "#8E939E"),
}


def ramp(name):
    """The definition of one shaded fill."""
    first, middle, last = RAMPS[name]
    mid = f'<stop offset="0.5" stop-color="{middle}"/>' if middle else ""
    return (f'<linearGradient id="{name}" x1="0" y1="0" x2="1" y2="1"><stop offset="0" stop-color="{first}"/>'
            f'{mid}<stop offset="1" stop-color="{last}"/></linearGradient>')


def svg(title, width, height, body):
    """A whole drawing: the body with those shaded fills that it uses."""
    used = "\n".join("    " + ramp(name) for name in RAMPS if f"url(#{name})" in body)
    defs = f"  <defs>\n{used}\n  </defs>\n" if used else ""
    lines = "\n".join("  " + line.strip() for line in body.strip().splitlines() if line.strip())
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}">\n  <title>{title}</title>\n{defs}{lines}\n</svg>\n')


def at(x, y, piece, scale=1, turn=0):
    """A piece moved, and perhaps turned or scaled about its own origin."""
    more = (f" rotate({turn})" if turn else "") + (f" scale({scale})" if scale != 1 else "")
    return f'<g transform="translate({x} {y}){more}">\n{piece.strip()}\n</g>'


def bars(colour, *boxes):
    """Filled boxes (x, y, width, height) of one colour: text lines, letters made of strokes, table rules."""
    return f'<path fill="{colour}" d="' + " ".join(f"M{x} {y}h{w}v{h}h-{w}z" for x, y, w, h in boxes) + '"/>'


COLOURS = {
    "K": INK, "l": LINE, "w": "#FFFFFF", "p": "#DCE6F6", "P": "#BFD0EC",
    "R": "#6E0D16", "r": "#DB2F38", "q": "#FF9A8A",
    "D": "#8A5200", "y": "#FFC83D", "Y": "#FFEFA6", "f": "#EE9A10",
    "G": "#14500E", "g": "#55BB33", "h": "#A9E87E", "e": "#2F8F22",
    "O": "#8A3A05", "o": "#FB9226", "n": "#FFC784", "u": "#D9690E",
    "T": "#073B57", "t": "#12A3C4", "c": "#7FE6EA", "s": "#066A97",
    "B": "#10275E", "b": "#3F7FD6", "a": "#A9D3FF", "d": "#2358B0",
    "V": "#331060", "v": "#8A4FC4", "x": "#6D35AC",
    "S": "#3A4560", "m": "#A3AEC2", "M": "#E6EBF3",
    "X": "#6F7583", "k": "#0E1524", "j": "#3E4A63", "i": "#8B97AE",
    "W": "#5A330C", "z": "#B97A36", "Z": "#E9B878",
}


def pixels(x, y, rows):
    """A map of single pixels, its top left corner at x, y: one path for each colour, runs joined."""
    runs = {}
    for down, row in enumerate(rows.split()):
        start = 0
        while start < len(row):
            end = start
            while end < len(row) and row[end] == row[start]:
                end += 1
            if row[start] != ".":
                runs.setdefault(row[start], []).append((x + start, y + down, end - start, 1))
            start = end
    return "\n".join(bars(COLOURS[mark], *boxes) for mark, boxes in runs.items())


def page(x, y, width, height, fold=6, edge=INK, fill="paper"):
    """A sheet whose top right corner is turned down; x, y, width, height are those of the filled pixels."""
    l, t, r, b = x + .5, y + .5, x + width - .5, y + height - .5
    return (f'<path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round" '
            f'd="M{l} {t}H{r - fold}L{r} {t + fold}V{b}H{l}z"/>\n'
            f'<path fill="url(#fold)" stroke="{edge}" stroke-linejoin="round" '
            f'd="M{r - fold} {t}V{t + fold}H{r}z"/>')


def tile(width, height):
    """A sheet that fills its box but for the four corner pixels."""
    return (f'<path fill="url(#paper)" d="M1 1h{width - 2}v{height - 2}h-{width - 2}z"/>\n'
            + bars(INK, (1, 0, width - 2, 1), (1, height - 1, width - 2, 1), (0, 1, 1, height - 2),
                   (width - 1, 1, 1, height - 2)))


def quill(edge=RED_DARK, fill="red"):
    """The product's feather, 24 x 26, nib at the bottom left (0.8, 25.2)."""
    return f'''
    <path fill="none" stroke="{edge}" stroke-width="2.2" stroke-linecap="round" d="M1.2 25L6.2 17.8"/>
    <path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round"
      d="M5.2 18.8C3.2 11 9.4 4.4 23.4 .7C23.6 4.4 22.9 7.2 21.6 9.4L18.6 9.9L20.4 11.1C19.2 12.7 17.9 13.9 16.3 14.9
      L13.2 14.8L14.8 16C12 17.8 8.6 18.9 5.2 18.8z"/>
    <path fill="#FFFFFF" fill-opacity="0.5" d="M6 15.2C5.9 10.4 10 6 18.4 3.1C12.8 6.6 8.8 10.4 6 15.2z"/>
    <path fill="none" stroke="#FFE7A8" stroke-width="1.1" stroke-linecap="round"
      d="M1.9 24.1L5.4 18.9C8.4 13.6 13 8.4 19.2 4.4"/>'''


def lens(radius, reach, edge="#26324A"):
    """A magnifier about its own centre; the handle reaches that far right and down."""
    near = radius * .78
    return f'''
    <path fill="none" stroke="{GOLD_DARK}" stroke-width="4.4" stroke-linecap="round"
      d="M{near + .8:.1f} {near + .8:.1f}L{reach} {reach}"/>
    <path fill="none" stroke="#FFC23A" stroke-width="2.3" stroke-linecap="round"
      d="M{near + .8:.1f} {near + .8:.1f}L{reach} {reach}"/>
    <circle r="{radius}" fill="url(#glass)" fill-opacity="0.82"/>
    <circle r="{radius}" fill="none" stroke="{edge}" stroke-width="2.2"/>
    <circle r="{radius}" fill="none" stroke="#B9C6DC" stroke-width="0.7"/>
    <path fill="none" stroke="#FFFFFF" stroke-width="1.5" stroke-linecap="round"
      d="M-{radius * .55:.1f} -{radius * .1:.1f}
      A{radius * .56:.1f} {radius * .56:.1f} 0 0 1 -{radius * .05:.2f} -{radius * .56:.1f}"/>'''


def reference(colour, tall=9):
    """The mark of a reference, [1], 13 wide: brackets and a figure of two-pixel strokes."""
    return bars(colour, (0, 0, 4, 1.5), (0, 0, 2, tall), (0, tall - 1.5, 4, 1.5),
                (9, 0, 4, 1.5), (11, 0, 2, tall), (9, tall - 1.5, 4, 1.5),
                (5.5, 2, 2, tall - 4), (4.7, 2, 1, 1.4), (4.5, tall - 3, 4, 1))


def arrow_right(length=13):
    """A thick green arrow pointing right, 11 tall, about its left middle."""
    neck = length - 6.5
    return (f'<path fill="url(#green)" stroke="{GREEN_DARK}" stroke-linejoin="round" '
            f'd="M.5 -2H{neck}V-5.5L{length - .5} 0L{neck} 5.5V2H.5z"/>')


def spine(x, top, width, bottom, fill, edge, band="#FFE9A6"):
    """One book on a shelf, seen from its back."""
    return f'''<rect x="{x + .5}" y="{top + .5}" width="{width - 1}" height="{bottom - top - 1}" rx="0.8"
      fill="url(#{fill})" stroke="{edge}"/>
    {bars(band, (x + 1, top + 3, width - 2, 1), (x + 1, top + 5, width - 2, 1))}'''


def question(colour):
    """A question mark 8 wide and 12 tall, of strokes two pixels thick."""
    return f'''<path fill="none" stroke="{colour}" stroke-width="2.3" d="M1 3.6C1 .4 7 .2 7 3.6C7 6 4 5.8 4 8.4"/>
    {bars(colour, (2.8, 9.8, 2.4, 2.4))}'''


def manual(height=27, fill="blue", edge="#10275E"):
    """The user manual: a thick closed book, 24 wide, with its pages seen below and its back at the left."""
    foot = height - .5
    return f'''
    <path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round"
      d="M3.5 .5H23.5V{foot}H3.5C1.8 {foot} .5 {foot - 1.1} .5 {foot - 2.7}V3.2C.5 1.6 1.8 .5 3.5 .5z"/>
    <path fill="#FFFFFF" stroke="{edge}" stroke-width="0.8"
      d="M23.5 {foot - 4}H4C2.4 {foot - 4} 2.4 {foot - 1} 4 {foot - 1}H23.5z"/>
    {bars("#A9B7D3", (4, foot - 2.9, 19, .9))}
    {bars("#FFFFFF", (4, 1, 19, .8))}
    <path fill="{edge}" fill-opacity="0.45" d="M4 1h1v{height - 6}h-1z"/>
    <path fill="#FFFFFF" fill-opacity="0.4"
      d="M1.3 3.4C1.3 2 2.2 1.4 3 1.4V{height - 5.4}C2.2 {height - 5.4} 1.6 {height - 5} 1.3 {height - 4.6}z"/>'''


def bulb(fill="gold", edge=GOLD_DARK, base="steel"):
    """A lamp about its glass's centre: glass of radius 6, socket below, 12.5 x 19."""
    return f'''
    <path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round"
      d="M-2.8 7V5.4C-8 2.4 -6.8 -6.2 0 -6.2C6.8 -6.2 8 2.4 2.8 5.4V7z"/>
    <path fill="#FFFFFF" fill-opacity="0.9" d="M-3.9 .4C-4.2 -2.4 -2.4 -4.4 .2 -4.6C-1.6 -3.4 -2.6 -2 -2.6 .2z"/>
    <path fill="none" stroke="{edge}" stroke-width="0.8" d="M-1.6 6.6L-1.9 2.2L0 3.6L1.9 2.2L1.6 6.6"/>
    <path fill="url(#{base})" stroke="#3A4560" stroke-linejoin="round" d="M-2.5 6.5H2.5V10.2L1.2 11.5H-1.2L-2.5 10.2z"/>
    {bars("#3A4560", (-2, 8, 4, .8))}'''


def globe(radius):
    """The world about its own centre."""
    r = radius
    return f'''
    <circle r="{r}" fill="url(#blue)" stroke="#10275E"/>
    <g transform="scale({r / 12:.3f})">
    <path fill="url(#green)" stroke="#1B6A2C" stroke-width="0.6"
      d="M-7.5 -8.4C-4 -10.6 -1 -11 .6 -10.6L1.4 -8L-1 -6.4L-1.6 -3.6L-4.4 -2.6L-4 -.6L-1.6 .4L.4 2.6L-1 5.4L-2.4 9.6
    L-4.2 9L-5 5L-7.6 2L-8 -1.4L-10.6 -3.6C-10 -5.6 -9 -7.2 -7.5 -8.4z"/>
    <path fill="url(#green)" stroke="#1B6A2C" stroke-width="0.6"
      d="M4 -9.6C7.4 -8 10 -5 10.8 -1.6L8.6 -.6L9.4 2.6L7 6.6L5 5.4L4.8 1.6L2.4 .2L2.8 -3L5.4 -4.4L3.4 -6.4z"/>
    <path fill="#FFFFFF" fill-opacity="0.45" d="M-8.8 -5C-7 -8.8 -3 -10.8 1 -10.4C-3.4 -8.6 -6.6 -7.4 -8.8 -5z"/>
    </g>'''


def kingfisher():
    """Halcyra's bird looking left, 30 x 29."""
    return f'''
    <path fill="url(#slate)" stroke="#0E1524" stroke-width="0.8" stroke-linejoin="round"
      d="M9 7.4L.6 10.6L.8 11.6L9.4 12.4z"/>
    <path fill="url(#orange)" stroke="#7A3003" stroke-linejoin="round"
      d="M8.4 11C8 17 9.6 23 15 25.2C18.4 26.4 22.4 25.6 23.6 23.4L21 12z"/>
    <path fill="url(#teal)" stroke="{TEAL_DARK}" stroke-linejoin="round"
      d="M7.6 9.8C7.4 4.4 11 .8 15.4 .8C20.2 .8 22.6 4 23.4 8.6C25 12.4 26.6 16.4 27.4 21L29.4 27.6L26.6 28.4
    L22.8 22.4C17 21.6 13 17.6 13.4 12.6C11.6 11.4 9.4 11.4 7.6 9.8z"/>
    <path fill="#FFFFFF" stroke="{TEAL_DARK}" stroke-width="0.6"
      d="M14.4 11.8C16.4 10.2 19 10.4 20.6 12C18.6 14.4 16 14.4 14.2 13.6z"/>
    <path fill="#FB9226" d="M9.2 9.2C11 8.2 14.6 8.2 16.4 9.6C14.6 11.4 11 11.6 9.2 9.2z"/>
    <circle cx="13" cy="7" r="1.7" fill="#0E1524"/>
    <circle cx="12.5" cy="6.5" r="0.6" fill="#FFFFFF"/>
    <path fill="none" stroke="#B9FBFF" stroke-width="1" stroke-linecap="round"
      d="M11.4 3.6C13 2 16.4 1.8 18.4 3.4M20.6 14C22 16 23.4 18 24 20.4M23.2 13.4C24 15 24.8 17 25.2 19"/>'''


def quote_mark(fill="orange", edge="#7A3003"):
    """One raised comma turned over, 6 x 8.6, of a pair that opens a quotation."""
    return (f'<path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round" '
            'd="M5.6 .5L5.9 2C4.4 2.5 3.8 3.1 3.6 4C5 4.1 6 5 6 6.3C6 7.7 4.9 8.6 3.4 8.6'
            'C1.6 8.6 .5 7.2 .5 5.2C.5 2.6 2.4 .8 5.6 .5z"/>')


def pilcrow(fill="blue", edge="#10275E"):
    """A paragraph mark, 13 x 17."""
    return (f'<path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round" '
            'd="M12.5 .5V2.5H11.5V16.5H9.5V2.5H8.5V16.5H6.5V9.5C2.5 9.5 .5 7.6 .5 5C.5 2.2 2.6 .5 6.5 .5z"/>')


def turning_arrow(fill="green", edge=GREEN_DARK):
    """Half of the refresh sign, about the centre it turns round (radius 8): from the left over the top to the right."""
    return (f'<path fill="url(#{fill})" stroke="{edge}" stroke-linejoin="round" '
            'd="M-9.5 -.8C-9.1 -5.8 -5.2 -9.5 0 -9.5C2.9 -9.5 5.3 -8.5 7.1 -6.8L9.1 -8.9L9.5 -1.6L2.6 -2.2L4.7 -4.3'
            'C3.5 -5.5 1.8 -6.3 0 -6.3C-3.3 -6.3 -5.9 -4 -6.4 -.8z"/>')


def binoculars(edge="#0E1524"):
    """Field glasses seen from above, 20 x 17, eyepieces at the top."""
    barrel = ('<path fill="url(#slate)" stroke="{e}" stroke-linejoin="round" '
              'd="M{0} .5H{1}V3.5L{2} 9V14C{2} 17 {3} 17 {3} 14V9L{0} 3.5z"/>')
    return f'''
    <rect x="7.5" y="4.5" width="5" height="6" fill="url(#slate)" stroke="{edge}"/>
    {barrel.format(3.5, 7.5, 8.5, .5, e=edge)}
    {barrel.format(12.5, 16.5, 19.5, 11.5, e=edge)}
    <ellipse cx="4.5" cy="14" rx="3" ry="1.9" fill="url(#glass)" stroke="{edge}" stroke-width="0.6"/>
    <ellipse cx="15.5" cy="14" rx="3" ry="1.9" fill="url(#glass)" stroke="{edge}" stroke-width="0.6"/>
    {bars("#C9D3E6", (4.2, 1.4, 1, 2), (13.2, 1.4, 1, 2), (2, 8.4, 1, 3), (13, 8.4, 1, 3))}'''
