"""The large pictures, and the extra ones of the same size."""

from art.pieces import (GOLD_DARK, INK, LINE, RED, arrow_right, at, bars, binoculars, bulb, globe, kingfisher, lens,
                        manual, page, pilcrow, pixels, question, quill, quote_mark, reference, spine,
                        tile, turning_arrow)


def ripples(x, y, colour="#1C6FC4"):
    """Rings on the mere where the nib touches it."""
    return (f'<ellipse cx="{x}" cy="{y}" rx="8" ry="3" fill="#7CC4F5" stroke="{colour}" stroke-width="1.1"/>\n'
            f'<ellipse cx="{x}" cy="{y}" rx="4" ry="1.4" fill="#E8F7FF" stroke="{colour}" stroke-width="0.9"/>')


def product():
    return "\n".join([page(3, 1, 23, 30, 6), bars(LINE, (7, 6, 8, 1), (7, 9, 6, 1), (7, 12, 5, 1)),
                      ripples(12.5, 26), at(7.6, .8, quill(), 1)])


def insert(width, height):
    left = width - 20
    return "\n".join([page(left, 0, 20, height, 5),
                      bars(LINE, (left + 3, 3, 8, 1), (left + 12, height - 10, 5, 1), (left + 12, height - 7, 5, 1),
                           (left + 3, height - 4, 14, 1)),
                      at(left + 4, (height - 18) // 2, reference(RED)),
                      at(0, height - 9.5, arrow_right(15 if width < 28 else 17))])


def paste():
    board = '''<rect x="0.5" y="2.5" width="24" height="27" rx="2" fill="url(#board)" stroke="#5A330C"/>'''
    clip = '''<path fill="url(#steel)" stroke="#3A4560" stroke-linejoin="round"
      d="M6.5 5.5V3.5L9.5 2.5C9.5 -.2 15.5 -.2 15.5 2.5L18.5 3.5V5.5z"/>
    <circle cx="12.5" cy="2.6" r="0.9" fill="#3A4560"/>'''
    return "\n".join([board, page(3, 5, 19, 22, 5), clip,
                      bars(LINE, (6, 9, 8, 1), (6, 23, 13, 1)), at(6, 12, reference(RED))])


def hunt():
    return "\n".join([spine(1, 2, 7, 28, "red", "#6E0D16"), spine(8, 0, 7, 28, "green", "#14500E"),
                      spine(15, 3, 6, 28, "gold", GOLD_DARK, "#B4471B"),
                      at(21.4, 3.6, spine(0, 0, 6, 25, "violet", "#331060"), turn=-9),
                      at(10, 14.5, binoculars(), 1.06)])


def chapter():
    ribbon = '<path fill="url(#red)" stroke="#6E0D16" stroke-linejoin="round" d="M19.5 .5H24.5V12.5L22 10L19.5 12.5z"/>'
    star = (f'<path fill="url(#gold)" stroke="{GOLD_DARK}" stroke-linejoin="round" '
            'd="M0 -8.4L1.9 -3.4L6.4 -6.2L4.1 -1.5'
            'L8.6 0L4.1 1.5L6.4 6.2L1.9 3.4L0 8.4L-1.9 3.4L-6.4 6.2L-4.1 1.5L-8.6 0L-4.1 -1.5L-6.4 -6.2L-1.9 -3.4z"/>\n'
            '<circle r="2" fill="#FFFFFF" fill-opacity="0.8"/>')
    sheet = f'<rect x="5.5" y="0.5" width="23" height="29" fill="url(#paper)" stroke="{INK}"/>'
    return "\n".join([sheet, ribbon, bars(INK, (9, 18, 16, 3)),
                      bars(LINE, (13, 23, 12, 1), (9, 26, 16, 1)),
                      at(8.8, 8.8, star, .97)])


# Figures 8 wide and 12 tall, of strokes three pixels thick.
FIGURES = {
    1: "M3 0H6V9.5H8V12H1V9.5H3V3.5H1V1.5C2 1.5 3 1 3 0z",
    2: "M0 4V2.5L2 0H6L8 2.2V5L3.4 9.5H8V12H0V9L5 4.4V2.6H3V4z",
    3: "M0 0H6L8 1.8V4.6L6.8 6L8 7.4V10.2L6 12H0V9.5H5V7.2H1.5V4.8H5V2.5H0z",
    4: "M4 0H7V7H8.4V9.4H7V12H4.2V9.4H0V7zM4.2 7V3.6L2.4 7z",
}
LEVELS = {1: ("red", "#6E0D16", RED), 2: ("orange", "#7A3003", "#D9690E"),
          3: ("green", "#14500E", "#2F9423"), 4: ("violet", "#331060", "#6D35AC")}


def heading(level):
    fill, edge, flat = LEVELS[level]
    length = {1: 22, 2: 17, 3: 12, 4: 7}[level]
    letter = bars(INK, (4, 3, 3, 12), (7, 8, 4, 2), (11, 3, 3, 12))
    figure = at(17, 3, f'<path fill="url(#{fill})" stroke="{edge}" stroke-width="0.7" fill-rule="evenodd" '
                       f'd="{FIGURES[level]}"/>')
    return "\n".join([tile(30, 30), letter, figure, bars(flat, (4, 18, length, 3)),
                      bars(LINE, (4, 23, 22, 1), (4, 26, 18, 1))])


def update():
    sheet = [page(7, 5, 14, 18, 4), bars("#E0572A", (10, 10, 2, 4)), bars("#3F8FD6", (13, 8, 2, 6)),
             bars("#55BB33", (16, 11, 2, 3)),
             bars("#3F6FB5", (10, 16, 8, 1), (10, 18, 8, 1), (10, 20, 8, 1),
                  (10, 16, 1, 5), (13, 16, 1, 5), (17, 16, 1, 5))]
    return "\n".join([at(14, 13.6, turning_arrow(), 1.38), at(14, 14.4, turning_arrow(), 1.38, 180)] + sheet)


def paragraph():
    return "\n".join([page(0, 0, 30, 32, 7), at(4, 4, pilcrow()),
                      bars("#4A6296", (19, 10, 7, 1), (19, 13, 7, 1), (19, 16, 7, 1), (19, 19, 7, 1)),
                      bars("#4A6296", (4, 23, 22, 1), (4, 26, 22, 1), (4, 29, 14, 1))])


def quotation():
    return "\n".join([page(0, 0, 30, 32, 7), at(3, 3, quote_mark(), 1.25), at(11.5, 3, quote_mark(), 1.25),
                      bars(LINE, (21, 9, 5, 1), (21, 12, 5, 1)),
                      bars("#FDE3BE", (8, 16, 17, 11)), bars("#FB9226", (6, 16, 2, 11)),
                      bars("#7A3003", (10, 18, 13, 1), (10, 21, 13, 1), (10, 24, 8, 1)), bars(LINE, (4, 28, 22, 1))])


WORD = """
.....B.......
.BB..B.....BB
...B.BBB..B..
.BBB.B..B.B..
B..B.B..B.B..
.BBB.BBB...BB"""


def synonyms(lit=True):
    """Lumivex: a lamp over a word; out and grey when it is off."""
    glow, edge = ("#FFE45C", INK) if lit else ("#D5D8DE", "#6F7583")
    sheet = (f'<path fill="url(#{"paper" if lit else "grey"})" stroke="{edge}" stroke-linejoin="round" '
             'd="M.5 17.5H31.5V31.5H.5z"/>')
    rays = ""
    if lit:
        rays = ('<path stroke="#E07B00" stroke-width="2" stroke-linecap="round" fill="none" '
                'd="M6.8 8.4H3.6M25.2 8.4H28.4M8.6 2.8L6.2 .9M23.4 2.8L25.8 .9M8.8 13.4L6.6 15M23.2 13.4L25.4 15"/>')
    lamp = bulb() if lit else bulb("grey", "#6F7583", "grey")
    word = pixels(9, 23, WORD if lit else WORD.replace("B", "X"))
    body = [sheet, bars(glow, (8, 22, 15, 8)),
            bars("#8494B5" if lit else "#9CA1AC", (3, 25, 4, 1), (24, 25, 5, 1), (3, 28, 4, 1), (24, 28, 5, 1)),
            word, rays, at(16, 7.6, lamp, 1.12)]
    return "\n".join(body)


def handbook():
    return "\n".join([at(4, 1, manual(28)), at(12.9, 6.4, question("#0B1F52"), 1.25),
                      at(12, 5.4, question("#FFE45C"), 1.25)])


def find():
    return "\n".join([at(0, 0, manual(26)), at(7, 4, question("#FFE45C")), at(20.5, 11, lens(6.8, 12))])


def open_book(fill="blue"):
    """A book lying open, 30 x 20."""
    return f'''
    <path fill="url(#{fill})" stroke="#10275E" stroke-linejoin="round" d="M.5 3.5H29.5V19.5H17L15 20.5L13 19.5H.5z"/>
    <path fill="url(#paper)" stroke="{INK}" stroke-linejoin="round"
      d="M15 3C12 .6 6 .2 2.5 1.5V17C6 15.8 12 16 15 18.4z"/>
    <path fill="url(#paper)" stroke="{INK}" stroke-linejoin="round"
      d="M15 3C18 .6 24 .2 27.5 1.5V17C24 15.8 18 16 15 18.4z"/>
    {bars(LINE, (5, 5, 7, 1), (5, 8, 7, 1), (5, 11, 7, 1), (18, 5, 7, 1), (18, 8, 7, 1), (18, 11, 7, 1))}'''


def find_variant():
    return "\n".join([at(1, 1, open_book()), at(16.5, 16, lens(7.2, 12.6))])


def website():
    return "\n".join([at(17.5, 14.5, globe(13.8)), at(-.2, 4.6, quill(), 1.06)])


def banner():
    words = 'font-family="DejaVu Sans" font-weight="bold"'
    return f'''
    <rect x="0.5" y="0.5" width="222" height="31" rx="6" fill="url(#banner)" stroke="#10275E"/>
    <path fill="none" stroke="#FFFFFF" stroke-opacity="0.75" d="M2 7C2 3.8 3.8 1.6 7 1.6H216C219 1.6 221 3.6 221 6.4"/>
    {at(20, 16, globe(12))}
    {at(4.6, 4.4, quill(), .96)}
    <text x="42" y="12" {words} font-size="11" fill="#10275E">Visit the</text>
    <text x="41.5" y="27" {words} font-size="16.5" fill="#10275E">Quillmere website</text>
    {at(201, 10, arrow_right(16))}
    '''


def halcyra():
    branch = '''
    <path fill="none" stroke="#4A2A0A" stroke-width="3.4" stroke-linecap="round" d="M3 28.6C10 27 20 29.6 24 29.4"/>
    <path fill="none" stroke="#A86C2E" stroke-width="1.4" stroke-linecap="round" d="M3.4 28.2C10 26.6 18 29 23 29"/>'''
    return "\n".join([branch, at(1, .6, kingfisher())])


def halcyra_variant():
    return "\n".join(['<rect x="0.5" y="0.5" width="31" height="31" rx="6" fill="url(#gold)" stroke="#8A5200"/>',
                      '<path fill="#FFFFFF" fill-opacity="0.6" d="M2 16V7C2 4 4 2 7 2H25C14 4 5 8 2 16z"/>',
                      at(2.6, 2.2, kingfisher(), .93)])


DRAWINGS = {
    102: ("Quillmere", 32, 32, product()),
    103: ("Insert a reference entry", 25, 30, insert(25, 30)),
    104: ("Paste a reference entry", 25, 30, paste()),
    105: ("Hunt for a reference", 32, 32, hunt()),
    106: ("Start a new chapter", 30, 30, chapter()),
    107: ("Heading of level 1", 30, 30, heading(1)),
    108: ("Heading of level 2", 30, 30, heading(2)),
    109: ("Heading of level 3", 30, 30, heading(3)),
    110: ("Heading of level 4", 30, 30, heading(4)),
    111: ("Update pages, figures and tables", 28, 28, update()),
    112: ("Set as paragraph", 30, 32, paragraph()),
    113: ("Set as quotation", 30, 32, quotation()),
    114: ("Lumivex", 32, 32, synonyms()),
    115: ("User manual", 32, 30, handbook()),
    116: ("Visit the Quillmere website", 223, 32, banner()),
    117: ("Find in the manual", 34, 26, find()),
    118: ("Halcyra", 32, 32, halcyra()),
    303: ("Insert a reference entry, tall", 28, 32, insert(28, 32)),
    314: ("Lumivex, off", 32, 32, synonyms(lit=False)),
    316: ("Visit the Quillmere website, square", 32, 32, website()),
    317: ("Find in the manual, square", 32, 32, find_variant()),
    318: ("Halcyra, framed", 32, 32, halcyra_variant()),
}
