#!/usr/bin/env python3
"""Writes the small images of the skin's controls (":/ui/..."):

  search          16x16  the magnifier at the left of the library's search box
  drop, drop_on   12x16  the caret beside it that opens the list of fields
  clear, clear_on 16x16  the search box's clear button: a grey disc with a
                         white cross (darker under the pointer)
  check           12x12  the white tick on an accent check box
  check_off       12x12  the tick of a checked but disabled box
  menu_check      12x12  the accent tick of a checked menu entry
  arrow_up, arrow_down   8x8 chevrons of spin boxes and combo boxes, with
                         _on (hover, accent) and _off (disabled) variants
  msg_warning, msg_question, msg_information, msg_critical
                  32x32  the message boxes' icons: an amber triangle, accent
                         discs with "?" and "i", a red disc, white marks
  editor_footer   4x116  the ground of the editor's settings bar: a hairline,
                         then the panes' ground; the skin lays it along the
                         bottom of the white editor sheet

Each is an SVG source rendered to NAME.png and NAME@2x.png (../svgpng.py).

Run from anywhere: python3 resources/images/ui/make_ui.py
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.dont_write_bytecode = True  # no __pycache__ beside the images
sys.path.insert(0, os.path.dirname(HERE))
from svgpng import ACCENT, DISABLED, GROUND, MUTED, SLATE, write_pair  # noqa: E402

SEARCH = """<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <g fill="none" stroke="{c}" stroke-width="1.6" stroke-linecap="round">
    <circle cx="7" cy="7" r="4.6"/>
    <path d="M10.4 10.4 L13.6 13.6" stroke-width="1.9"/>
  </g>
</svg>
"""

DROP = """<svg xmlns="http://www.w3.org/2000/svg" width="12" height="16" viewBox="0 0 12 16">
  <path d="M2.5 6.5 H9.5 L6 10.5 Z" fill="{c}" stroke="{c}" stroke-width="1" stroke-linejoin="round"/>
</svg>
"""

CLEAR = """<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <circle cx="8" cy="8" r="7" fill="{c}"/>
  <path d="M5.6 5.6 L10.4 10.4 M10.4 5.6 L5.6 10.4" fill="none" stroke="#fff" stroke-width="1.6" stroke-linecap="round"/>
</svg>
"""

CHECK = """<svg xmlns="http://www.w3.org/2000/svg" width="12" height="12" viewBox="0 0 12 12">
  <path d="M2.4 6.3 L4.9 8.7 L9.6 3.5" fill="none" stroke="{c}" stroke-width="{w}" stroke-linecap="round" stroke-linejoin="round"/>
</svg>
"""

ARROWS = {
    "arrow_up": "M1.6 5.4 L4 3 L6.4 5.4",
    "arrow_down": "M1.6 2.8 L4 5.2 L6.4 2.8",
}
ARROW = """<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8" viewBox="0 0 8 8">
  <path d="{d}" fill="none" stroke="{c}" stroke-width="1.5" stroke-linecap="round" stroke-linejoin="round"/>
</svg>
"""

# The skin's #setingWidget is 100 px tall and this band starts 16 px above it.
FOOTER_HEIGHT = 116
FOOTER = """<svg xmlns="http://www.w3.org/2000/svg" width="4" height="{h}" viewBox="0 0 4 {h}">
  <rect width="4" height="{h}" fill="{ground}"/>
  <rect width="4" height="1" fill="#e1e6ed"/>
</svg>
"""

MESSAGE_ICONS = {
    "msg_warning": """  <path d="M16 5 L28.5 26.5 H3.5 Z" fill="#f5a524" stroke="#f5a524" stroke-width="3.4" stroke-linejoin="round"/>
  <rect x="14.6" y="11.6" width="2.8" height="8.6" rx="1.4" fill="#fff"/>
  <circle cx="16" cy="23.3" r="1.7" fill="#fff"/>""",
    "msg_question": """  <circle cx="16" cy="16" r="14" fill="{accent}"/>
  <path d="M12.2 12.6 A3.9 3.9 0 1 1 17.6 16.3 C16.6 16.9 16 17.6 16 18.9 V19.4" fill="none" stroke="#fff" stroke-width="2.9" stroke-linecap="round"/>
  <circle cx="16" cy="23.6" r="1.8" fill="#fff"/>""",
    "msg_information": """  <circle cx="16" cy="16" r="14" fill="{accent}"/>
  <circle cx="16" cy="9.6" r="1.9" fill="#fff"/>
  <rect x="14.5" y="13.2" width="3" height="10.8" rx="1.5" fill="#fff"/>""",
    "msg_critical": """  <circle cx="16" cy="16" r="14" fill="#e5484d"/>
  <path d="M11.5 11.5 L20.5 20.5 M20.5 11.5 L11.5 20.5" fill="none" stroke="#fff" stroke-width="3" stroke-linecap="round"/>""",
}
MESSAGE_ICON = """<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">
{body}
</svg>
"""


def main():
    write_pair(HERE, "search", SEARCH.format(c=MUTED), 16, 16)
    write_pair(HERE, "drop", DROP.format(c=MUTED), 12, 16)
    write_pair(HERE, "drop_on", DROP.format(c=ACCENT), 12, 16)
    write_pair(HERE, "clear", CLEAR.format(c="#c3cad4"), 16, 16)
    write_pair(HERE, "clear_on", CLEAR.format(c=MUTED), 16, 16)
    write_pair(HERE, "check", CHECK.format(c="#fff", w=1.9), 12, 12)
    write_pair(HERE, "check_off", CHECK.format(c="#a3adba", w=1.9), 12, 12)
    write_pair(HERE, "menu_check", CHECK.format(c=ACCENT, w=1.9), 12, 12)
    for name, d in ARROWS.items():
        for suffix, colour in (("", SLATE), ("_on", ACCENT), ("_off", DISABLED)):
            write_pair(HERE, name + suffix, ARROW.format(d=d, c=colour), 8, 8)
    for name, body in MESSAGE_ICONS.items():
        write_pair(HERE, name, MESSAGE_ICON.format(body=body.replace("{accent}", ACCENT)), 32, 32)
    write_pair(HERE, "editor_footer", FOOTER.format(h=FOOTER_HEIGHT, ground=GROUND), 4,
               FOOTER_HEIGHT)


if __name__ == "__main__":
    main()
