#!/usr/bin/env python3
"""Draws every picture of the panel into resources/icons/.

Icons are single-colour masks on a 24-unit grid with a 2-unit round stroke;
the panel tints them through the style sheet. Status bar icons are shown
untinted, so each of them is drawn in the one colour that tells its state.
The raster pictures (logo, upgrade frames, app download codes) are drawn here
as SVG and rasterised by raster_tool.cpp, built on demand with g++.

Usage: python3 scripts/icons/make_icons.py   (rewrites resources/icons/)
"""
import math
import os
import subprocess
import sys
import tempfile

ROOT = os.path.normpath(os.path.join(os.path.dirname(__file__), "..", ".."))
OUT = os.path.join(ROOT, "resources", "icons")

WHITE = "#ffffff"
DIM = "#9ca3af"
RED = "#ef4444"
SOFT_RED = "#f87171"
AMBER = "#f59e0b"
GREEN = "#22c55e"
BRAND = "#22d3ee"
BRAND_DEEP = "#3b82f6"
ANDROID_GREEN = "#3ddc84"


# --- drawing primitives (24-unit grid) -------------------------------------

def n(v):
    return ("%.2f" % v).rstrip("0").rstrip(".")


def line(x1, y1, x2, y2, extra=""):
    return f'<path d="M{n(x1)} {n(y1)} L{n(x2)} {n(y2)}"{extra}/>'


def poly(*pts, close=False, extra=""):
    d = "M" + " L".join(f"{n(x)} {n(y)}" for x, y in pts) + (" Z" if close else "")
    return f'<path d="{d}"{extra}/>'


def path(d, extra=""):
    return f'<path d="{d}"{extra}/>'


def circle(cx, cy, r, extra=""):
    return f'<circle cx="{n(cx)}" cy="{n(cy)}" r="{n(r)}"{extra}/>'


def dot(cx, cy, r):
    return circle(cx, cy, r, ' fill="C" stroke="none"')


def rect(x, y, w, h, rx=0, extra=""):
    return f'<rect x="{n(x)}" y="{n(y)}" width="{n(w)}" height="{n(h)}" rx="{n(rx)}"{extra}/>'


def solid_rect(x, y, w, h, rx=0):
    return rect(x, y, w, h, rx, ' fill="C" stroke="none"')


def polar(cx, cy, r, deg):
    a = math.radians(deg)
    return cx + r * math.cos(a), cy + r * math.sin(a)


def arc(cx, cy, r, start, end, extra=""):
    """Arc from angle `start` to `end` (degrees, clockwise on screen)."""
    x1, y1 = polar(cx, cy, r, start)
    x2, y2 = polar(cx, cy, r, end)
    large = 1 if (end - start) % 360 > 180 else 0
    return path(f"M{n(x1)} {n(y1)} A{n(r)} {n(r)} 0 {large} 1 {n(x2)} {n(y2)}", extra)


def arrow_head(x, y, deg, size=3.5):
    """Open chevron whose tip is at (x, y), pointing towards angle `deg`."""
    a = polar(x, y, size, deg + 180 - 45)
    b = polar(x, y, size, deg + 180 + 45)
    return poly(a, (x, y), b)


def arc_arrow(cx, cy, r, start, end, head_at_end=True):
    parts = [arc(cx, cy, r, start, end)]
    if head_at_end:
        tx, ty = polar(cx, cy, r, end)
        parts.append(arrow_head(tx, ty, end + 90 - 6))
    else:
        tx, ty = polar(cx, cy, r, start)
        parts.append(arrow_head(tx, ty, start - 90 + 6))
    return parts


def svg(parts, color=WHITE, w=24, h=24, stroke=2):
    body = "\n  ".join(p.replace('"C"', f'"{color}"') for p in parts)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{w}" height="{h}" '
            f'viewBox="0 0 {w} {h}">\n'
            f' <g fill="none" stroke="{color}" stroke-width="{stroke}" '
            f'stroke-linecap="round" stroke-linejoin="round">\n  {body}\n </g>\n</svg>\n')


# --- shared glyphs ----------------------------------------------------------

def chevron(direction):
    s = 1 if direction == "right" else -1
    return [poly((12 - 3.5 * s, 5), (12 + 3.5 * s, 12), (12 - 3.5 * s, 19))]


def chevron_to_edge(direction):
    s = 1 if direction == "right" else -1
    return [poly((12 - 4 * s, 5), (12 + 3 * s, 12), (12 - 4 * s, 19)), line(12 + 7 * s, 5, 12 + 7 * s, 19)]


def touch_point(x, y):
    return [dot(x, y, 2.2), circle(x, y, 4.2, ' stroke-width="1.5" stroke-opacity="0.55"')]


def wifi_arcs(cy=19.5):
    return [dot(12, cy, 1.6), arc(12, cy, 5, 230, 310), arc(12, cy, 9.5, 226, 314),
            arc(12, cy, 14, 228, 312)]


def hotspot():
    return [rect(3, 14, 18, 7, 2), dot(7, 17.5, 1.1), dot(10.5, 17.5, 1.1), line(15.5, 17.5, 17.5, 17.5),
            line(12, 14, 12, 9.5), arc(12, 9.5, 3.5, 215, 325), arc(12, 9.5, 7.5, 220, 320)]


def ethernet_port():
    return [poly((3, 5.5), (21, 5.5), (21, 16), (16, 16), (16, 19.5), (8, 19.5), (8, 16), (3, 16), close=True),
            line(8, 9, 8, 11.5), line(11, 9, 11, 11.5), line(13, 9, 13, 11.5), line(16, 9, 16, 11.5)]


def padlock():
    return [rect(5, 10.5, 14, 10.5, 2.2), path("M8 10.5 V7.5 A4 4 0 0 1 16 7.5 V10.5"), line(12, 14.5, 12, 17)]


def padlock_solid():
    body = ("M7.2 10.5 H16.8 A2.2 2.2 0 0 1 19 12.7 V18.8 A2.2 2.2 0 0 1 16.8 21 H7.2 "
            "A2.2 2.2 0 0 1 5 18.8 V12.7 A2.2 2.2 0 0 1 7.2 10.5 Z "
            "M12 13.6 A1.6 1.6 0 0 0 11.1 16.5 V18 H12.9 V16.5 A1.6 1.6 0 0 0 12 13.6 Z")
    return [path(body, ' fill="C" stroke="none" fill-rule="evenodd"'),
            path("M8 10.5 V7.5 A4 4 0 0 1 16 7.5 V10.5")]


def crescent():
    return [path("M19.5 14.6 A8 8 0 1 1 9.4 4.5 A6.3 6.3 0 0 0 19.5 14.6 Z")]


def speaker():
    return [poly((3.5, 9.2), (7.5, 9.2), (12.5, 4.8), (12.5, 19.2), (7.5, 14.8), (3.5, 14.8), close=True)]


def cloud(arrow_up):
    parts = [path("M8 17.5 H6.8 A4.3 4.3 0 0 1 6.4 8.9 A6.2 6.2 0 0 1 18 8.8 A4.4 4.4 0 0 1 17.6 17.5 H16")]
    if arrow_up:
        parts += [line(12, 21, 12, 11.5), arrow_head(12, 11.5, -90, 3.2)]
    else:
        parts += [line(12, 11, 12, 20.5), arrow_head(12, 20.5, 90, 3.2)]
    return parts


def gear(cx=12, cy=12, teeth=8, outer=10, inner=7.6):
    pts = []
    step = 360 / teeth
    for i in range(teeth):
        a = i * step
        for deg, r in ((a - step * 0.32, inner), (a - step * 0.17, outer), (a + step * 0.17, outer),
                       (a + step * 0.32, inner)):
            pts.append(polar(cx, cy, r, deg))
    return [poly(*pts, close=True), circle(cx, cy, 3)]


def fan():
    blade = "M12 12 C10.6 8.6 10.8 4.4 13.6 3.6 C16.6 2.8 17.2 7.2 12 12 Z"
    return [path(blade, f' transform="rotate({a} 12 12)"') for a in (0, 120, 240)] + [dot(12, 12, 1.8)]


def sun_rays(cx, cy, r1, r2, angles):
    return [line(*polar(cx, cy, r1, a), *polar(cx, cy, r2, a)) for a in angles]


def disk_level_fill(x, y, w, h, fraction, horizontal=False):
    if fraction <= 0:
        return []
    if horizontal:
        return [solid_rect(x, y, w * fraction, h, 1)]
    return [solid_rect(x, y + h * (1 - fraction), w, h * fraction, 1)]


# --- the icon set -----------------------------------------------------------

def icon_set():
    icons = {}

    def add(name, parts, color=WHITE, **kw):
        icons[name] = svg(parts, color, **kw)

    # general
    add("general/left.svg", chevron("left"))
    add("general/right.svg", chevron("right"))
    add("general/left_out.svg", chevron_to_edge("left"))
    add("general/right_out.svg", chevron_to_edge("right"))
    add("general/loading.svg",
        [line(*polar(12, 12, 4.5, a), *polar(12, 12, 9, a), f' stroke-opacity="{n(0.25 + 0.75 * i / 7)}"')
         for i, a in enumerate(range(-90 + 45, 270 + 45, 45))])
    add("general/succeed.svg", [circle(12, 12, 9.5), poly((7.8, 12.4), (10.7, 15.3), (16.3, 9.2))])
    add("general/failed.svg", [circle(12, 12, 9.5), line(9, 9, 15, 15), line(15, 9, 9, 15)])
    add("general/warning.svg", [poly((12, 3.5), (21.5, 20), (2.5, 20), close=True), line(12, 9.5, 12, 14),
                                dot(12, 17, 1.2)])
    add("general/swipe_left_right.svg",
        touch_point(12, 16) + [line(3, 6.5, 21, 6.5), arrow_head(3, 6.5, 180, 3), arrow_head(21, 6.5, 0, 3)])
    add("general/swipe_up.svg", touch_point(12, 17.5) + [line(12, 11, 12, 3), arrow_head(12, 3, -90, 3)])
    add("general/swipe_down.svg", touch_point(12, 6.5) + [line(12, 13, 12, 21), arrow_head(12, 21, 90, 3)])
    add("general/edge_swipe_inward.svg",
        [line(2.5, 4, 2.5, 20), line(21.5, 4, 21.5, 20), line(6, 12, 10, 12), arrow_head(10, 12, 0, 2.8),
         line(18, 12, 14, 12), arrow_head(14, 12, 180, 2.8)])
    add("general/long_press.svg",
        [dot(12, 12, 2.6), circle(12, 12, 6), circle(12, 12, 9.8, ' stroke-width="1.5" stroke-opacity="0.45"')])

    # main menu
    add("mainmenu/video.svg", [rect(2, 6, 13.5, 12, 2.5), poly((15.5, 10.5), (21.5, 7), (21.5, 17), (15.5, 13.5))])
    add("mainmenu/audio.svg", [line(4, 10, 4, 14), line(8, 6.5, 8, 17.5), line(12, 3, 12, 21),
                               line(16, 7, 16, 17), line(20, 10, 20, 14)])
    add("mainmenu/stream.svg", cloud(arrow_up=True))
    add("mainmenu/decode.svg", [rect(2.5, 3.5, 19, 13, 2), line(12, 16.5, 12, 20.5), line(8, 20.5, 16, 20.5),
                                poly((10, 7), (14.8, 10), (10, 13), close=True, extra=' fill="C"')])
    add("mainmenu/ptz.svg", [circle(12, 9.5, 6.5), circle(12, 9.5, 2.4), line(12, 16, 12, 18),
                             rect(5.5, 18, 13, 3, 1.5)])
    add("mainmenu/network.svg", [circle(12, 5, 2.5), circle(5, 19, 2.5), circle(19, 19, 2.5),
                                 line(12, 7.5, 12, 12), poly((6.6, 17), (12, 12), (17.4, 17))])
    add("mainmenu/system.svg", gear())

    # system settings
    add("system_settings/dcout.svg", [poly((13, 2.5), (5, 13.5), (11.5, 13.5), (10.5, 21.5), (19, 10.5),
                                           (12.5, 10.5), close=True)])
    add("system_settings/fanmode.svg", fan())
    add("system_settings/language.svg", [circle(12, 12, 9.5), path("M12 2.5 A4.2 9.5 0 0 0 12 21.5 "
                                                                   "A4.2 9.5 0 0 0 12 2.5"),
                                         line(2.5, 12, 21.5, 12), line(4, 7.5, 20, 7.5), line(4, 16.5, 20, 16.5)])
    add("system_settings/reboot.svg", arc_arrow(12, 12, 8.5, -60, 240))
    add("system_settings/reset.svg", arc_arrow(12, 12, 8.5, -60, 240, head_at_end=False) + [dot(12, 12, 2)])
    add("system_settings/shutdown.svg", [arc(12, 13, 8.5, -60, 240), line(12, 2.5, 12, 11)])
    add("system_settings/standby.svg", crescent())
    add("system_settings/theme.svg", [circle(12, 12, 9.5), path("M12 2.5 A9.5 9.5 0 0 1 12 21.5 Z",
                                                                 ' fill="C" stroke="none"')])
    add("system_settings/time.svg", [circle(12, 12, 9.5), poly((12, 6.5), (12, 12), (15.8, 14.2))])
    add("system_settings/usbmode.svg",
        [line(12, 5, 12, 18.5), poly((10, 6), (12, 2.5), (14, 6), close=True, extra=' fill="C"'),
         dot(12, 20.2, 1.9), poly((12, 15.5), (6.5, 11.5), (6.5, 9.5)), dot(6.5, 8.2, 1.5),
         poly((12, 13), (17.5, 9.8), (17.5, 8)), solid_rect(16, 5, 3, 3, 0.4)])
    add("system_settings/version.svg", [poly((12, 3), (21, 7.8), (12, 12.6), (3, 7.8), close=True),
                                        poly((3, 12), (12, 16.8), (21, 12)), poly((3, 16.2), (12, 21), (21, 16.2))])
    add("system_settings/workmode.svg", [line(4, 8, 19.5, 8), arrow_head(19.5, 8, 0), line(20, 16, 4.5, 16),
                                         arrow_head(4.5, 16, 180)])

    # camera settings
    add("camera_settings/lcd_bright.svg", [circle(12, 12, 4)] + sun_rays(12, 12, 7, 9.5, range(0, 360, 45)))
    add("camera_settings/lcd_lock.svg", padlock())
    add("camera_settings/lcd_sleep.svg", [rect(2.5, 3.5, 19, 13, 2), line(12, 16.5, 12, 20.5),
                                          line(8, 20.5, 16, 20.5), poly((9.5, 7.5), (14.5, 7.5), (9.5, 12.5),
                                                                        (14.5, 12.5), extra=' stroke-width="1.8"')])
    add("camera_settings/ptz_proto.svg",
        [circle(12, 12, 2.5), line(12, 3, 12, 7.5), arrow_head(12, 3, -90, 3), line(12, 21, 12, 16.5),
         arrow_head(12, 21, 90, 3), line(3, 12, 7.5, 12), arrow_head(3, 12, 180, 3), line(21, 12, 16.5, 12),
         arrow_head(21, 12, 0, 3)])
    add("camera_settings/tally.svg", [path("M7 18 V13 A5 5 0 0 1 17 13 V18"), rect(4.5, 18, 15, 3, 1.2),
                                      dot(12, 13.5, 1.6)] + sun_rays(12, 13, 8, 10.3, (-90, -135, -45, 180, 0)))
    add("camera_settings/tally_light.svg",
        [path("M9 16.5 V15 C6.7 13.6 5.5 11.6 5.5 9.3 A6.5 6.5 0 0 1 18.5 9.3 C18.5 11.6 17.3 13.6 15 15 V16.5 Z"),
         line(10, 20.5, 14, 20.5)])
    add("camera_settings/tally_mode.svg",
        [line(3, 7, 6.5, 7), circle(9, 7, 2.5), line(11.5, 7, 21, 7),
         line(3, 17, 12.5, 17), circle(15, 17, 2.5), line(17.5, 17, 21, 17)])

    # decode and media settings
    add("decode_settings/rtmp_switch.svg", [rect(3, 3.5, 18, 7, 1.8), rect(3, 13.5, 18, 7, 1.8), dot(7, 7, 1.1),
                                            dot(7, 17, 1.1), line(11, 7, 17, 7), line(11, 17, 17, 17)])
    add("media_settings/disk.svg", [rect(2.5, 5, 19, 14, 2.5), line(2.5, 13.5, 21.5, 13.5), dot(17.5, 16.3, 1.1),
                                    dot(14, 16.3, 1.1)])
    add("media_settings/disk_speed.svg", [path("M4.6 18 A9 9 0 1 1 19.4 18"), line(12, 14, 16.2, 8.6),
                                          dot(12, 14, 1.8)])
    add("media_settings/ndi_quality.svg", [rect(3, 14, 4.2, 6.5, 1), rect(9.9, 9, 4.2, 11.5, 1),
                                           rect(16.8, 3.5, 4.2, 17, 1)])
    add("media_settings/ndi_switch.svg", [rect(2.5, 3, 19, 12.5, 2), line(12, 15.5, 12, 18.2), circle(12, 20, 1.8),
                                          line(3, 20, 10.2, 20), line(13.8, 20, 21, 20)])
    add("media_settings/srt_switch.svg",
        [path("M12 2.5 L19.5 5.5 V11 C19.5 16 16.3 19.6 12 21.5 C7.7 19.6 4.5 16 4.5 11 V5.5 Z"),
         line(8.5, 12, 15, 12), arrow_head(15, 12, 0, 3)])

    # network settings
    add("network_settings/ap.svg", hotspot())
    add("network_settings/wlan.svg", wifi_arcs())
    bt_rune = [poly((6.5, 7), (17.5, 17), (12, 22), (12, 2), (17.5, 7), (6.5, 17))]
    add("network_settings/bt.svg", bt_rune)
    add("network_settings/btyindao.svg",
        [rect(6, 2, 12, 20, 2.5), line(10.5, 5, 13.5, 5),
         poly((9.6, 10.2), (14.4, 14.6), (12, 17), (12, 7.8), (14.4, 10.2), (9.6, 14.6), extra=' stroke-width="1.6"'),
         arc(18, 12.4, 3, -50, 50, ' stroke-width="1.6"'), arc(6, 12.4, 3, 130, 230, ' stroke-width="1.6"')])

    # encoder shortcut controls: solid shapes that read from across a room
    add("shortcut/pause.svg", [solid_rect(6, 4.5, 4, 15, 1.2), solid_rect(14, 4.5, 4, 15, 1.2)])
    add("shortcut/record.svg", [dot(12, 12, 7.5)])
    add("shortcut/resume.svg", [poly((7.5, 4.8), (19.5, 12), (7.5, 19.2), close=True, extra=' fill="C"')])
    add("shortcut/stop.svg", [solid_rect(5.5, 5.5, 13, 13, 2.5)])

    # standby
    add("standby/standby.svg", [path("M17.5 15.6 A7.3 7.3 0 1 1 8.4 6.5 A5.8 5.8 0 0 0 17.5 15.6 Z"),
                                line(18.5, 2.5, 18.5, 6.5, ' stroke-width="1.5"'),
                                line(16.5, 4.5, 20.5, 4.5, ' stroke-width="1.5"'), dot(21.5, 10, 1)])
    add("standby/wakeup.svg", [line(2.5, 19.5, 21.5, 19.5), arc(12, 19.5, 5, 180, 360)]
        + sun_rays(12, 19.5, 8, 10.5, (195, 235, 270, 305, 345)))

    # status bar: untinted, the colour is part of the state
    for state, color in (("active", WHITE), ("inactive", DIM)):
        add(f"statusbar/ap_{state}.svg", hotspot(), color)
        add(f"statusbar/eth_{state}.svg", ethernet_port(), color)
        add(f"statusbar/wifi_{state}.svg", wifi_arcs(), color)
    add("statusbar/wifi_off.svg", wifi_arcs() + [line(4, 3.5, 20, 20.5)], DIM)
    add("statusbar/dec.svg", [circle(12, 12, 9.5), poly((10, 8), (16, 12), (10, 16), close=True, extra=' fill="C"')])
    add("statusbar/live.svg", [dot(12, 12, 2.6), arc(12, 12, 6, 140, 220), arc(12, 12, 6, -40, 40),
                               arc(12, 12, 10, 140, 220), arc(12, 12, 10, -40, 40)], GREEN)
    add("statusbar/lock.svg", padlock_solid())
    add("statusbar/rec.svg", [circle(12, 12, 9.5), dot(12, 12, 5.5)], RED)
    add("statusbar/rec_pause.svg", [circle(12, 12, 9.5), solid_rect(8.6, 7.5, 2.4, 9, 0.8),
                                    solid_rect(13, 7.5, 2.4, 9, 0.8)], AMBER)
    levels = (("0", 0.0), ("30", 1 / 3), ("60", 2 / 3), ("full", 1.0))
    sd_outline = path("M7.5 2.5 H17.5 A2 2 0 0 1 19.5 4.5 V19.5 A2 2 0 0 1 17.5 21.5 H6.5 A2 2 0 0 1 4.5 19.5 "
                      "V5.5 Z")
    sd_pins = [line(10, 5, 10, 7), line(13, 5, 13, 7), line(16, 5, 16, 7)]
    udisk_outline = [rect(2, 6, 20.5, 13, 2.5), rect(22.5, 8.5, 6.5, 8, 1), line(25, 11, 26.5, 11),
                     line(25, 14, 26.5, 14)]
    nas_outline = [rect(6, 2, 12, 15, 2), line(12, 17, 12, 20.5), line(5.5, 20.5, 18.5, 20.5), dot(3.5, 20.5, 1.5),
                   dot(20.5, 20.5, 1.5)]
    for level, fraction in levels:
        color = SOFT_RED if level == "full" else WHITE
        add(f"statusbar/sdcard_{level}.svg", [sd_outline] + sd_pins + disk_level_fill(7.5, 10, 9, 8.5, fraction),
            color)
        add(f"statusbar/udisk_{level}.svg",
            udisk_outline + disk_level_fill(4.7, 8.7, 15.1, 7.6, fraction, horizontal=True), color, w=31, h=25)
        add(f"statusbar/nas_{level}.svg", nas_outline + disk_level_fill(8.6, 4.6, 6.8, 9.8, fraction), color)
    add("statusbar/sdcard_unmount.svg", [sd_outline] + sd_pins + [line(8, 11, 16, 19), line(16, 11, 8, 19)], DIM)
    add("statusbar/udisk_unmount.svg", udisk_outline + [line(9, 9, 15.5, 16), line(15.5, 9, 9, 16)], DIM,
        w=31, h=25)
    add("statusbar/nas_unmount.svg", nas_outline + [line(9.5, 7, 14.5, 12), line(14.5, 7, 9.5, 12)], DIM)

    # status page 1
    add("statusp1/cpu.svg", [rect(6, 6, 12, 12, 2), rect(9.5, 9.5, 5, 5, 0.6)]
        + [line(p, 6, p, 3) for p in (9, 12, 15)] + [line(p, 18, p, 21) for p in (9, 12, 15)]
        + [line(6, p, 3, p) for p in (9, 12, 15)] + [line(18, p, 21, p) for p in (9, 12, 15)])
    add("statusp1/devname.svg", [poly((3.5, 3.5), (11, 3.5), (20.5, 13), (13, 20.5), (3.5, 11), close=True),
                                 dot(8, 8, 1.6)])
    add("statusp1/mem.svg", [rect(2.5, 6.5, 19, 10, 1.5), rect(5.5, 9, 3, 5, 0.4), rect(10.5, 9, 3, 5, 0.4),
                             rect(15.5, 9, 3, 5, 0.4)] + [line(p, 16.5, p, 19.5) for p in (6, 10, 14, 18)])
    add("statusp1/temp.svg", [path("M10 13.6 V5 A2 2 0 0 1 14 5 V13.6 A4.2 4.2 0 1 1 10 13.6 Z"),
                              line(12, 9, 12, 15.5), dot(12, 17.2, 1.9), line(16.5, 5.5, 19, 5.5),
                              line(16.5, 9, 19, 9)])

    # status page 2
    add("statusp2/acodec.svg", [rect(2.5, 4.5, 19, 15, 2.5),
                                poly((5.5, 12), (7.5, 12), (9, 8.5), (11, 15.5), (13, 7.5), (15, 16), (16.5, 12),
                                     (18.5, 12))])
    add("statusp2/bitrate.svg", [poly((2.5, 12.5), (6.5, 12.5), (9.5, 4.5), (14.5, 19.5), (17.5, 12.5),
                                      (21.5, 12.5))])
    add("statusp2/dec_source.svg", cloud(arrow_up=False))
    add("statusp2/format.svg", [rect(2.5, 5, 19, 14, 2), poly((6, 11), (6, 8.5), (8.5, 8.5)),
                                poly((18, 13), (18, 15.5), (15.5, 15.5))])
    add("statusp2/loop.svg", [path("M4 11.5 V10 A3 3 0 0 1 7 7 H19.5"), arrow_head(19.5, 7, 0, 3.2),
                              path("M20 12.5 V14 A3 3 0 0 1 17 17 H4.5"), arrow_head(4.5, 17, 180, 3.2)])
    add("statusp2/mute.svg", speaker() + [line(16, 9.5, 21, 14.5), line(21, 9.5, 16, 14.5)])
    add("statusp2/sound.svg", speaker() + [arc(12.5, 12, 4, -45, 45), arc(12.5, 12, 8, -50, 50)])
    add("statusp2/vcodec.svg", [rect(3, 3, 18, 18, 2), line(7.5, 3, 7.5, 21), line(16.5, 3, 16.5, 21)]
        + [line(3, p, 7.5, p) for p in (8, 12, 16)] + [line(16.5, p, 21, p) for p in (8, 12, 16)])
    add("statusp2/vi.svg", [path("M13 3.5 H18.5 A2 2 0 0 1 20.5 5.5 V18.5 A2 2 0 0 1 18.5 20.5 H13"),
                            line(3, 12, 14, 12), arrow_head(14, 12, 0)])
    add("statusp2/vo.svg", [path("M11 3.5 H5.5 A2 2 0 0 0 3.5 5.5 V18.5 A2 2 0 0 0 5.5 20.5 H11"),
                            line(9, 12, 21, 12), arrow_head(21, 12, 0)])

    # status page 3
    add("statusp3/audio_source.svg", [rect(9, 2.5, 6, 11.5, 3), path("M5.5 11 A6.5 6.5 0 0 0 18.5 11"),
                                      line(12, 17.5, 12, 21), line(8.5, 21, 15.5, 21)])
    wave = [(2.5 + i * 0.5, 12 - 6 * math.sin(2 * math.pi * (i * 0.5) / 19)) for i in range(39)]
    add("statusp3/sample_rate.svg", [poly(*wave, extra=' stroke-opacity="0.6" stroke-width="1.6"')]
        + [dot(x, 12 - 6 * math.sin(2 * math.pi * (x - 2.5) / 19), 1.5) for x in (2.5, 5.7, 8.8, 12, 15.2, 18.3,
                                                                                     21.5)])

    # upgrade and video settings
    add("upgrade/waring.svg", [circle(12, 12, 9.5), line(12, 7, 12, 13), dot(12, 16.5, 1.2)])
    corners = path("M3 8 V5.5 A2.5 2.5 0 0 1 5.5 3 H8 M16 3 H18.5 A2.5 2.5 0 0 1 21 5.5 V8 "
                   "M21 16 V18.5 A2.5 2.5 0 0 1 18.5 21 H16 M8 21 H5.5 A2.5 2.5 0 0 1 3 18.5 V16")
    add("video_settings/ai.svg", [corners, circle(12, 9.8, 2.8), path("M7.2 17.5 A4.8 4.8 0 0 1 16.8 17.5")])
    add("video_settings/gsk.svg", [rect(2.5, 3.5, 19, 17, 2), dot(12, 10, 3),
                                   path("M6.5 20.5 A5.5 5.5 0 0 1 17.5 20.5 Z", ' fill="C"')])

    # app connect page: drawn in their own colours
    icons["QR/android_icon.svg"] = android_icon()
    icons["QR/ios.svg"] = phone_icon()
    icons["QR/arrows.svg"] = arrows_banner()
    icons["QR/harvelin.svg"] = wordmark(200, 56, mark_colors=(BRAND, BRAND_DEEP), text_color=WHITE)
    icons["QR/wite.svg"] = wordmark(200, 56, mark_colors=(WHITE, WHITE), text_color=WHITE)
    return icons


def android_icon():
    g = ANDROID_GREEN
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">\n'
            f' <path d="M3.5 18 A8.5 8.5 0 0 1 20.5 18 Z" fill="{g}"/>\n'
            f' <g stroke="{g}" stroke-width="1.6" stroke-linecap="round">'
            '<path d="M7.6 11.4 L5.6 8.2"/><path d="M16.4 11.4 L18.4 8.2"/></g>\n'
            ' <circle cx="8.6" cy="14.6" r="1.1" fill="#ffffff"/>\n'
            ' <circle cx="15.4" cy="14.6" r="1.1" fill="#ffffff"/>\n</svg>\n')


def phone_icon():
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">\n'
            ' <rect x="6" y="2.5" width="12" height="19" rx="3" fill="#e5e7eb"/>\n'
            ' <rect x="7.4" y="4.6" width="9.2" height="14.2" rx="1.2" fill="#111827"/>\n'
            ' <rect x="10" y="3.2" width="4" height="0.9" rx="0.45" fill="#111827"/>\n'
            ' <rect x="10" y="19.7" width="4" height="0.8" rx="0.4" fill="#9ca3af"/>\n</svg>\n')


def arrows_banner():
    chevrons = "".join(
        f'<path d="M{x} 7 L{x + 9} 16 L{x} 25" stroke-opacity="{o}"/>'
        for x, o in ((30, 0.3), (45, 0.6), (60, 1.0)))
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="100" height="32" viewBox="0 0 100 32">\n'
            f' <g fill="none" stroke="{BRAND}" stroke-width="3.5" stroke-linecap="round" '
            f'stroke-linejoin="round">{chevrons}</g>\n</svg>\n')


# --- lettering for the logos and progress frames ----------------------------
# Strokes on a 4-by-6 cell (x right, y down); a glyph is a list of polylines.
GLYPHS = {
    "A": [[(0, 6), (2, 0), (4, 6)], [(0.7, 4), (3.3, 4)]],
    "E": [[(4, 0), (0, 0), (0, 6), (4, 6)], [(0, 3), (3, 3)]],
    "H": [[(0, 0), (0, 6)], [(4, 0), (4, 6)], [(0, 3), (4, 3)]],
    "I": [[(0, 0), (0, 6)]],
    "L": [[(0, 0), (0, 6), (4, 6)]],
    "N": [[(0, 6), (0, 0), (4, 6), (4, 0)]],
    "R": [[(0, 6), (0, 0), (3, 0), (4, 1), (4, 2), (3, 3), (0, 3)], [(2, 3), (4, 6)]],
    "V": [[(0, 0), (2, 6), (4, 0)]],
    "0": [[(1, 0), (3, 0), (4, 1), (4, 5), (3, 6), (1, 6), (0, 5), (0, 1), (1, 0)]],
    "1": [[(1, 1), (2.5, 0), (2.5, 6)]],
    "2": [[(0, 1), (1, 0), (3, 0), (4, 1), (4, 2.2), (0, 6), (4, 6)]],
    "3": [[(0, 0), (4, 0), (1.8, 2.6), (3, 2.6), (4, 3.6), (4, 5), (3, 6), (1, 6), (0, 5)]],
    "4": [[(3, 6), (3, 0), (0, 4), (4, 4)]],
    "5": [[(4, 0), (0, 0), (0, 2.6), (3, 2.6), (4, 3.6), (4, 5), (3, 6), (0, 6)]],
    "6": [[(3.5, 0), (1, 0), (0, 1), (0, 5), (1, 6), (3, 6), (4, 5), (4, 3.6), (3, 2.6), (0, 2.6)]],
    "7": [[(0, 0), (4, 0), (1.5, 6)]],
    "8": [[(1, 0), (3, 0), (4, 1), (4, 2), (3, 3), (1, 3), (0, 2), (0, 1), (1, 0)],
          [(1, 3), (3, 3), (4, 4), (4, 5), (3, 6), (1, 6), (0, 5), (0, 4), (1, 3)]],
    "9": [[(4, 3.4), (1, 3.4), (0, 2.4), (0, 1), (1, 0), (3, 0), (4, 1), (4, 5), (3, 6), (0.5, 6)]],
    "%": [[(4, 0), (0, 6)]],
}
GLYPH_DOTS = {"%": [(0.6, 0.9), (3.4, 5.1)]}


def lettering(text, x, y, size, tracking=2.2):
    """Paths of `text` with cap height `size`, starting at (x, y) top-left."""
    scale = size / 6
    out = []
    for ch in text:
        for stroke in GLYPHS[ch]:
            out.append(poly(*[(x + px * scale, y + py * scale) for px, py in stroke]))
        for px, py in GLYPH_DOTS.get(ch, []):
            out.append(circle(x + px * scale, y + py * scale, 0.75 * scale))
        width = max(px for stroke in GLYPHS[ch] for px, _ in stroke)
        x += (width + tracking) * scale
    return out, x


def lettering_width(text, size, tracking=2.2):
    _, end = lettering(text, 0, 0, size, tracking)
    return end - tracking * size / 6


def brand_mark(x, y, h, colors):
    """An italic double bar joined by a bridge: the maker's H, cell h high."""
    s = h / 24
    pts = lambda *p: " ".join(f"{n(x + a * s)} {n(y + b * s)}" for a, b in p)
    return (f'<defs><linearGradient id="mark" x1="0" y1="0" x2="1" y2="1">'
            f'<stop offset="0" stop-color="{colors[0]}"/><stop offset="1" stop-color="{colors[1]}"/>'
            f'</linearGradient></defs>'
            f'<path d="M{pts((6, 0), (11, 0), (6, 24), (1, 24))} Z" fill="url(#mark)"/>'
            f'<path d="M{pts((17, 0), (22, 0), (17, 24), (12, 24))} Z" fill="url(#mark)"/>'
            f'<path d="M{pts((6.5, 10), (17.5, 10), (16.6, 14), (5.6, 14))} Z" fill="url(#mark)"/>')


def wordmark(w, h, mark_colors, text_color, stacked=False):
    if stacked:
        mark_h = h * 0.42
        text_size = h * 0.17
        text_w = lettering_width("HARVELIN", text_size)
        mark = brand_mark((w - mark_h * 23 / 24) / 2, h * 0.1, mark_h, mark_colors)
        letters, _ = lettering("HARVELIN", (w - text_w) / 2, h * 0.68, text_size)
    else:
        mark_h = h * 0.7
        gap = h * 0.3
        # As tall as the space allows, as long as the whole row keeps a margin.
        room = w * 0.92 - mark_h * 23 / 24 - gap
        text_size = min(h * 0.42, room * 6 / lettering_width("HARVELIN", 6))
        text_w = lettering_width("HARVELIN", text_size)
        start = (w - (mark_h * 23 / 24 + gap + text_w)) / 2
        mark = brand_mark(start, (h - mark_h) / 2, mark_h, mark_colors)
        letters, _ = lettering("HARVELIN", start + mark_h * 23 / 24 + gap, (h - text_size) / 2, text_size)
    stroke = max(1.5, text_size / 7)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{n(w)}" height="{n(h)}" viewBox="0 0 {n(w)} {n(h)}">\n'
            f' {mark}\n <g fill="none" stroke="{text_color}" stroke-width="{n(stroke)}" stroke-linecap="round" '
            f'stroke-linejoin="round">{"".join(letters)}</g>\n</svg>\n')


def upgrade_frame(percent):
    w, h = 330, 100
    segments, gap = 10, 4
    bar_x, bar_y, bar_w, bar_h = 10, 62, 310, 18
    seg_w = (bar_w - gap * (segments - 1)) / segments
    filled = round(percent / 10)
    parts = []
    for i in range(segments):
        color, opacity = ("#10b981", 1.0) if i < filled else ("#9ca3af", 0.35)
        parts.append(f'<rect x="{n(bar_x + i * (seg_w + gap))}" y="{bar_y}" width="{n(seg_w)}" height="{bar_h}" '
                     f'rx="3" fill="{color}" fill-opacity="{opacity}"/>')
    label = f"{percent}%"
    size = 30
    letters, _ = lettering(label, w - 10 - lettering_width(label, size), 14, size)
    chip = (f'<g fill="none" stroke="#ffffff" stroke-width="3" stroke-linecap="round" stroke-linejoin="round">'
            f'<rect x="12" y="12" width="34" height="34" rx="5"/>'
            f'<path d="M29 20 V38 M22 27 L29 20 L36 27"/></g>')
    text = (f'<g fill="none" stroke="#ffffff" stroke-width="3.4" stroke-linecap="round" '
            f'stroke-linejoin="round">{"".join(letters)}</g>')
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{w}" height="{h}" viewBox="0 0 {w} {h}">\n'
            f' {chip}\n {text}\n {"".join(parts)}\n</svg>\n')


# App download pages; the domain is a placeholder until the store pages exist.
DOWNLOAD_CODES = {
    "QR/android.jpg": "https://download.harvelin.example/app/android",
    "QR/android_ch.jpg": "https://download.harvelin.example/app/android?region=cn",
    "QR/apple.jpg": "https://download.harvelin.example/app/ios",
}


def build_raster_tool(work):
    tool = os.path.join(work, "raster_tool")
    source = os.path.join(os.path.dirname(__file__), "raster_tool.cpp")
    flags = subprocess.check_output(["pkg-config", "--cflags", "--libs", "libqrencode", "Qt5Gui", "Qt5Svg"],
                                    text=True).split()
    subprocess.check_call(["g++", "-std=c++17", "-O1", "-fPIC", source, "-o", tool] + flags)
    return tool


def write(relative, text):
    target = os.path.join(OUT, relative)
    os.makedirs(os.path.dirname(target), exist_ok=True)
    with open(target, "w") as f:
        f.write(text)


def main():
    for relative, text in icon_set().items():
        write(relative, text)
    with tempfile.TemporaryDirectory() as work:
        tool = build_raster_tool(work)
        drawings = {
            "logo.png": (wordmark(640, 172, (BRAND, BRAND_DEEP), WHITE), 640, 172),
            "upgrade/logo.png": (wordmark(190, 132, (BRAND, BRAND_DEEP), WHITE, stacked=True), 190, 132),
        }
        for percent in (0, 40, 50, 60, 70, 80, 90, 100):
            drawings[f"upgrade/upgrade{percent}.png"] = (upgrade_frame(percent), 330, 100)
        for relative, (text, w, h) in drawings.items():
            source = os.path.join(work, relative.replace("/", "_") + ".svg")
            with open(source, "w") as f:
                f.write(text)
            subprocess.check_call([tool, "svg", source, os.path.join(OUT, relative), str(w), str(h)])
        for relative, url in DOWNLOAD_CODES.items():
            subprocess.check_call([tool, "qr", url, os.path.join(OUT, relative), "6"])
    write_qrc()
    return 0


def write_qrc():
    files = []
    for folder, _, names in os.walk(OUT):
        for name in names:
            files.append(os.path.relpath(os.path.join(folder, name), os.path.dirname(OUT)))
    lines = ['<!DOCTYPE RCC>', '<RCC version="1.0">', '<qresource prefix="/">']
    lines += [f"  <file>{f}</file>" for f in sorted(files)]
    lines += ["</qresource>", "</RCC>", ""]
    with open(os.path.join(ROOT, "resources", "icons.qrc"), "w") as f:
        f.write("\n".join(lines))


if __name__ == "__main__":
    sys.exit(main())
