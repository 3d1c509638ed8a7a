"""The small pictures, 16 x 16. They are set pixel by pixel: a large drawing made smaller would only blur.

A map has one character per pixel;
COLOURS in art/pieces.py says what each stands for, a full stop lets through what lies beneath.
"""

from art.pieces import COLOURS, INK, LINE, at, bars, globe, page, pixels, tile, turning_arrow

QUILL = """
..........RR
........RRqR
......RRqYrR
.....RqqYrrR
....RqqYrrR.
...RqqYrrRR.
..RqqYrrRR..
..RqYrrrrR..
..RYrrrRR...
.RYrrRRR....
.RYRR.......
.R..........
R..........."""

ARROW = """
....GG...
GGGGGhG..
GhhhhhgG.
GggggggeG
GeeeeegG.
GGGGGeG..
....GG..."""

REFERENCE = """
rr..r.rr
r..rr..r
r...r..r
r...r..r
r...r..r
rr..r.rr"""

BINOCULARS = """
.kkkk..kkkk.
.kijk..kijk.
.kijkkkkijk.
kiijkijkiijk
kijjkkkkijjk
kijjk..kijjk
kaajk..kaajk
kMajk..kMajk
.kkk....kkk."""

STAR = """
....D....
.D.DyD.D.
.DDyYyDD.
..DyYyyD.
DyYYwYyyD
..DyYyyD.
.DDyyyDD.
.D.DyD.D.
....D...."""

LETTER = """
KK..KK
KK..KK
KK..KK
KKKKKK
KK..KK
KK..KK
KK..KK"""

FIGURES = {
    1: (".##.. ###.. .##.. .##.. .##.. .##.. ####.", "r", 12),
    2: ("####. ...## ...## .###. ##... ##... #####", "u", 9),
    3: ("####. ...## ...## .###. ...## ...## ####.", "e", 6),
    4: ("##.## ##.## ##.## ##### ...## ...## ...##", "x", 3),
}

PILCROW = """
.ddddddd
dddddBd.
dddddBd.
dddddBd.
.ddddBd.
...ddBd.
...ddBd.
...ddBd.
...ddBd."""

QUOTES = """
..u...u
.u...u.
uuu.uuu
uuu.uuu
uuu.uuu"""

BULB = """
..DDDDD..
.DYwYyyD.
DYwYyyyyD
DYwyyyyfD
DYyyyyyfD
DyyyyyffD
.DyyyffD.
..DDDDD..
..SMmmS..
..SMmmS..
...SSS..."""

RAYS = """
................
.u............u.
..u..........u..
................
uu............uu
................
................
..u..........u..
.u............u."""

QUESTION = """
.YYYY.
YY..YY
....YY
...YY.
..YY..
......
..YY.."""

LENS = """
..kkkk.....
.kMwaak....
kMwMaaak...
kwMMaaak...
kMMaaaak...
kaaaaaak...
.kaaaakDD..
..kkkkDyyD.
......DyYyD
.......DyyD
........DD."""

KINGFISHER = """
......TTTTT.....
.....TccttsT....
....TccttttsT...
....TcktttttT...
kkkkjoowwtttT...
..kkkOnowwstcT..
....OnoooTtccT..
....OnoooTttcsT.
....OnoooTtttcT.
....OoooouTtttsT
.....OooouTTttsT
.....OoooouuTtsT
.WWWWWOOuuuOTtsT
WZZZZZZzOOOzWTsT
WzzzzzzzzzzzzWtT
.WWWWWWWWWWWW.TT"""


def heading(level):
    map_, mark, length = FIGURES[level]
    return "\n".join([tile(16, 16),
                      pixels(2, 2, LETTER), pixels(9, 2, map_.replace("#", mark)),
                      bars(COLOURS[mark], (2, 10, length, 2)), bars(LINE, (2, 13, 12, 1))])


def book(width, height):
    """The closed manual, back at the left, pages seen below."""
    return "\n".join([
        f'<path fill="url(#blue)" stroke="#10275E" '
        f'd="M.5 1.5L1.5 .5H{width - .5}V{height - .5}H1.5L.5 {height - 1.5}z"/>',
        bars("#A9D3FF", (1, 2, 1, height - 5)), bars("#10275E", (2, 1, 1, height - 4)),
        bars("#10275E", (2, height - 4, width - 3, 1)), bars("#FFFFFF", (2, height - 3, width - 3, 1)),
        bars("#BFD0EC", (2, height - 2, width - 3, 1))])


def shelf():
    def spine(x, top, edge, light, fill):
        return "\n".join([bars(edge, (x, top, 4, 16 - top)), bars(light, (x + 1, top + 1, 1, 14 - top)),
                          bars(fill, (x + 2, top + 1, 1, 14 - top)), bars("#FFE9A6", (x + 1, top + 2, 2, 1))])
    return "\n".join([spine(0, 1, "#6E0D16", "#FF9A8A", "#DB2F38"), spine(4, 0, "#14500E", "#A9E87E", "#55BB33"),
                      spine(8, 2, "#8A5200", "#FFEFA6", "#FFC83D"), spine(12, 1, "#331060", "#C79BF0", "#8A4FC4")])


SHEET = page(1, 0, 14, 16, 4)
BOARD = '<rect x="1.5" y="1.5" width="13" height="14" rx="1" fill="url(#board)" stroke="#5A330C"/>'
CLIP = pixels(4, 0, "..SSSS.. .SMMmmS. SMMmmmmS SSSSSSSS")

BODIES = {
    202: ("Quillmere", [page(1, 0, 12, 16, 3), bars(LINE, (3, 3, 4, 1), (3, 5, 3, 1)),
                        bars("#1C6FC4", (4, 12, 6, 3), (3, 13, 8, 1)), bars("#9AD6FA", (4, 13, 6, 1)),
                        pixels(4, 1, QUILL)]),
    203: ("Insert a reference entry", [page(4, 0, 12, 16, 4), bars(LINE, (6, 2, 4, 1), (11, 13, 3, 1)),
                                       pixels(6, 4, REFERENCE), pixels(0, 9, ARROW)]),
    204: ("Paste a reference entry", [BOARD, page(3, 3, 10, 12, 3), CLIP, pixels(4, 7, REFERENCE)]),
    205: ("Hunt for a reference", [shelf(), pixels(4, 7, BINOCULARS)]),
    206: ("Start a new chapter", ['<rect x="3.5" y="0.5" width="12" height="15" fill="url(#paper)" stroke="#2A3F6B"/>',
                                  bars(INK, (5, 9, 9, 2)), bars(LINE, (7, 12, 7, 1), (5, 14, 9, 1)),
                                  pixels(11, 0, "RRRR RqrR RqrR RqrR RRRR R..R"), pixels(0, 0, STAR)]),
    207: ("Heading of level 1", [heading(1)]),
    208: ("Heading of level 2", [heading(2)]),
    209: ("Heading of level 3", [heading(3)]),
    210: ("Heading of level 4", [heading(4)]),
    211: ("Update pages, figures and tables", [at(8, 7.8, turning_arrow(), .78),
                                               at(8, 8.2, turning_arrow(), .78, 180),
                                               page(4, 3, 8, 10, 2), bars("#E0572A", (6, 6, 1, 3)),
                                               bars("#3F8FD6", (8, 5, 1, 4)), bars(LINE, (6, 10, 4, 1))]),
    212: ("Set as paragraph", [SHEET, pixels(3, 2, PILCROW), bars("#4A6296", (3, 12, 10, 1), (3, 14, 7, 1)),
                               bars("#4A6296", (11, 6, 2, 1), (11, 8, 2, 1), (11, 10, 2, 1))]),
    213: ("Set as quotation", [SHEET, pixels(3, 2, QUOTES), bars("#FDE3BE", (5, 8, 8, 6)),
                               bars("#FB9226", (4, 8, 1, 6)),
                               bars("#8A3A05", (6, 9, 6, 1), (6, 11, 6, 1)), bars("#8A3A05", (6, 13, 4, 1))]),
    214: ("Lumivex", ['<rect x="0.5" y="11.5" width="15" height="4" fill="url(#paper)" stroke="#2A3F6B"/>',
                      bars("#FFE45C", (4, 12, 8, 3)), bars(LINE, (2, 13, 1, 1), (13, 13, 1, 1)),
                      bars(INK, (5, 13, 6, 1)),
                      pixels(0, 0, RAYS), pixels(4, 0, BULB)]),
    215: ("User manual", [at(1, 0, book(14, 16)), pixels(6, 3, QUESTION)]),
    216: ("Visit the Quillmere website", [at(9, 7, globe(6.5)), at(-3, 0, pixels(3, 3, QUILL))]),
    217: ("Find in the manual", [book(12, 14), pixels(4, 1, QUESTION), pixels(5, 5, LENS)]),
    218: ("Halcyra", [pixels(0, 0, KINGFISHER)]),
}
DRAWINGS = {number: (title, 16, 16, "\n".join(body)) for number, (title, body) in BODIES.items()}
