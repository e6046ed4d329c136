#!/usr/bin/python3
"""Lists the interactive controls of Tonewright's window that a screen reader
cannot name, as a real AT-SPI client sees them.

Usage: a11ycheck.py PROGRAM [SONG]

Run it inside a private D-Bus session on an X display (the test does
`xvfb-run -a dbus-run-session -- a11ycheck.py ...`). It starts PROGRAM (with
SONG, when given, and waits until the editor shows it), walks the window's
accessible tree and prints one line per showing interactive control, then
`interactive: N`, `unnamed: N`, `window-role: ROLE`, `wave: NAME`. The exit
code is 0 when every interactive control has a name, 1 when some have none,
2 when the window never appeared, 4 when the program ended before it did
(the last lines it wrote are printed).
"""

import os
import subprocess
import sys
import tempfile
import time

# pyatspi keeps the list of applications it saw when imported: each look
# is made by a fresh process (probe mode), so the program is imported late.
if __name__ == "__main__" and sys.argv[1:2] == ["--probe"]:
    import pyatspi
else:
    pyatspi = None

# Roles a user acts on; anything focusable counts as well.
INTERACTIVE = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_SLIDER,
    pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_ENTRY, pyatspi.ROLE_PASSWORD_TEXT,
    pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_BOX, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE,
    pyatspi.ROLE_TABLE, pyatspi.ROLE_MENU, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM,
    pyatspi.ROLE_RADIO_MENU_ITEM, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_SCROLL_BAR,
    pyatspi.ROLE_LINK, pyatspi.ROLE_CANVAS,
} if pyatspi else set()
TIMEOUT_S = 60


def find_window():
    desktop = pyatspi.Registry.getDesktop(0)
    for app in desktop:
        if app is None:
            continue
        try:
            name = app.name or ""
        except Exception:
            continue
        if "tonewright" not in name.lower():
            continue
        for child in app:
            if child is not None and child.name == "Tonewright":
                return child
    return None


def walk(node, path, out):
    try:
        states = node.getState()
        role = node.getRole()
    except Exception:
        return
    if not states.contains(pyatspi.STATE_SHOWING):
        return
    here = path + [node.getRoleName()]
    if role in INTERACTIVE or states.contains(pyatspi.STATE_FOCUSABLE):
        out.append((node, "/".join(here)))
    for i in range(node.childCount):
        try:
            child = node.getChildAtIndex(i)
        except Exception:
            continue
        if child is not None:
            walk(child, here, out)


def editor_showing(window):
    """The editor's page is up: its time fields show."""
    found = []
    walk(window, [], found)
    return any(node.getRole() == pyatspi.ROLE_SPIN_BUTTON for node, _ in found)


def find_wave(window):
    found = []
    walk(window, [], found)
    for node, _ in found:
        if node.getRole() == pyatspi.ROLE_CANVAS and node.name.startswith("Selection "):
            return node
    return None


def probe(with_song):
    """One look: exit 3 when the window (with the song's editor) is not there yet."""
    window = find_window()
    if window is None or (with_song and not editor_showing(window)):
        return 3
    found = []
    walk(window, [], found)
    unnamed = 0
    for node, where in found:
        name = node.name or ""
        if not name.strip():
            unnamed += 1
            print("UNNAMED %s" % where)
        else:
            print("named %s: %s" % (where, name))
    wave = find_wave(window)
    print("interactive: %d" % len(found))
    print("unnamed: %d" % unnamed)
    print("window-role: %s" % window.getRoleName())
    print("wave: %s" % (wave.name if wave is not None else ""))
    sys.stdout.flush()
    return 1 if unnamed else 0


def main():
    if len(sys.argv) < 2:
        print(__doc__)
        return 2
    if sys.argv[1] == "--probe":
        return probe(sys.argv[2:3] == ["song"])
    args = sys.argv[1:]
    env = dict(os.environ)
    env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    env["QT_QPA_PLATFORM"] = "xcb"
    # Starts the accessibility bus before the program looks for it.
    subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                    "/org/a11y/bus", "org.a11y.Bus.GetAddress"],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    log = tempfile.TemporaryFile(mode="w+")
    child = subprocess.Popen(args, env=env, stdout=log, stderr=subprocess.STDOUT)
    try:
        deadline = time.time() + TIMEOUT_S
        while time.time() < deadline and child.poll() is None:
            look = subprocess.run([sys.executable, os.path.abspath(__file__), "--probe",
                                   "song" if len(args) > 1 else "none"],
                                  stdout=subprocess.PIPE, text=True, check=False)
            if look.returncode != 3:
                sys.stdout.write(look.stdout)
                return look.returncode
            time.sleep(0.5)
        if child.poll() is not None:
            log.seek(0)
            print("window: not found: the program ended (code %d) before it showed; its last "
                  "lines:" % child.returncode)
            sys.stdout.write("".join(log.readlines()[-15:]))
            return 4
        print("window: not found")
        return 2
    finally:
        child.terminate()
        try:
            child.wait(10)
        except subprocess.TimeoutExpired:
            child.kill()


if __name__ == "__main__":
    sys.exit(main())
