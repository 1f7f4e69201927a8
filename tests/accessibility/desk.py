"""A desk as an assistive program meets it: its windows, what they hold, and what can be done with it."""

import subprocess
import time

import pyatspi
from gi.repository import GLib

KEYS = {"F1": 0xFFBE, "Escape": 0xFF1B}
PATIENCE = 20  # seconds; a busy machine is slow to show a window
SPOKEN = {"text", "push button", "check box", "radio button", "combo box", "spin button", "table", "page tab"}
# Parts that the toolkit makes of its own, and that keys reach without them.
TOOLKITS_OWN = {"Scroll Left", "Scroll Right"}


def tree(node):
    """The node and all that is in it and is shown; of tables the first cells."""
    if node is None or not node.getState().contains(pyatspi.STATE_SHOWING):
        return
    yield node
    for place in range(min(node.childCount, 300)):
        yield from tree(node.getChildAtIndex(place))


def has(node, state):
    return node.getState().contains(state)


def text_of(node):
    return node.queryText().getText(0, -1)


def related(node, kind):
    return [relation.getTarget(place).name for relation in node.getRelationSet()
            if relation.getRelationType() == kind for place in range(relation.getNTargets())]


def act(node, *names):
    """Does the first of the actions that the node has."""
    actions = node.queryAction()
    for place in range(actions.nActions):
        if actions.getName(place) in names:
            actions.doAction(place)
            return
    raise AssertionError(f"{node.getRoleName()} \"{node.name}\" offers none of {names}")


class Desk:
    def __init__(self, *command):
        self.process = subprocess.Popen(command)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def windows(self):
        """The windows that are shown, the one on top last."""
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                return [window for window in application
                        if window is not None and has(window, pyatspi.STATE_SHOWING)]
        return []

    def until(self, what, ask):
        """The first answer that is none of None, False and nothing; fails when there is none in time."""
        begun = time.monotonic()
        while time.monotonic() - begun < PATIENCE:
            assert self.process.poll() is None, "the desk has ended"
            try:
                if answer := ask():
                    return answer
            except GLib.Error:
                pass  # a window that has just closed answers so
            time.sleep(0.05)
        raise AssertionError(f"there is no {what}; open: "
                             f"{[(w.getRoleName(), w.name, [n.name for n in tree(w) if n.name]) for w in self.windows()]}")

    def window(self, name, role=None):
        """A window that is on top and ready."""
        return self.until(f"window {name}", lambda: next(
            (window for window in self.windows()
             if window.name == name and (role is None or window.getRoleName() == role)), None))

    def find(self, window, role, name):
        return self.until(f"{role} \"{name}\" in {window.name}", lambda: next(
            (node for node in tree(window) if node.getRoleName() == role and node.name == name), None))

    def write(self, window, name, text, reads=None, role="text"):
        """Writes into a field by its text interface alone, and waits until it reads so."""
        field = self.find(window, role, name)
        wanted = text.upper() if reads is None else reads

        def written():
            # A desk that is still at something takes nothing and shows it: as its clerk would, it is tried again.
            field.queryEditableText().setTextContents(text)
            time.sleep(0.1)
            return text_of(field) == wanted

        self.until(f"text {wanted!r} in {name}", written)

    def reads(self, window, name, text, role="text"):
        self.until(f"text {text!r} in {name}", lambda: text_of(self.find(window, role, name)) == text)

    def tick(self, window, role, name):
        node = self.find(window, role, name)
        if not has(node, pyatspi.STATE_CHECKED):
            act(node, "Toggle", "Press")
        self.until(f"mark at {name}", lambda: has(node, pyatspi.STATE_CHECKED))

    def press(self, window, name):
        button = self.find(window, "push button", name)
        self.until(f"way to press {name}", lambda: has(button, pyatspi.STATE_SENSITIVE))
        act(button, "Press")

    def key(self, name):
        """A key that has no action of its own."""
        pyatspi.Registry.generateKeyboardEvent(KEYS[name], None, pyatspi.KEY_SYM)

    def active(self, window):
        """Waits until the window has the keyboard, and returns what in it has the focus."""
        self.until(f"focus in {window.name}", lambda: has(window, pyatspi.STATE_ACTIVE) and focused(window))
        return focused(window)

    def turn_to(self, window, page):
        act(self.find(window, "page tab", page), "Press")
        self.until(f"page {page} with the focus on it", lambda: any(
            node.name == page and node.getRoleName() == "filler" and focused(node) for node in tree(window)))

    def choose(self, window, label, entry):
        """An entry of a list of choices, found by its label."""
        box = self.until(f"list {label}", lambda: next(
            (node for node in tree(window) if node.getRoleName() == "combo box"
             and label in related(node, pyatspi.RELATION_LABELLED_BY)), None))
        entries = box.getChildAtIndex(0)
        item = next(item for item in (entries.getChildAtIndex(place) for place in range(entries.childCount))
                    if item is not None and item.name == entry)
        act(item, "Toggle")
        self.until(f"choice {entry} in {label}", lambda: box.name == entry)


def focused(window):
    """What has the focus; the tab of the page that is shown says so of itself, too."""
    return [node for node in tree(window) if has(node, pyatspi.STATE_FOCUSED) and node.getRoleName() != "page tab"]


def faults(window):
    """What an assistive program cannot say of a window."""
    where = f"{window.getRoleName()} \"{window.name}\""
    if window.getRoleName() not in ("frame", "dialog", "alert") or not window.name:
        yield f"{where}: is no window with a name"
    if window.getRoleName() == "dialog" and not has(window, pyatspi.STATE_MODAL):
        yield f"{where}: does not say that the windows behind it wait"
    for node in tree(window):
        if node.getRoleName() == "frame" and node != window:
            yield f"{where}: a part of it calls itself a window"
        if node.getRoleName() == "image" and not node.name and window.getRoleName() != "alert":
            yield f"{where}: a picture has no name"
    seen = {}
    for node in tree(window):
        role, name = node.getRoleName(), node.name
        if role not in SPOKEN or name in TOOLKITS_OWN:
            continue
        labels = related(node, pyatspi.RELATION_LABELLED_BY)
        if not name and not (role == "combo box" and (labels or node.description)):
            yield f"{where}: a {role} has no name, in \"{node.parent.name}\""
        if role == "combo box" and not labels and not node.description:
            yield f"{where}: the list \"{name}\" says its choice and not what it is for"
        if role != "combo box" and has(node, pyatspi.STATE_FOCUSABLE):
            seen[role, name] = seen.get((role, name), 0) + 1
        if role in ("text", "spin button"):
            text_of(node)  # which fails where there is no such interface
        if role == "table":
            titles = [title.name for title in tree(node) if title.getRoleName() == "table column header"]
            if not any(titles):
                yield f"{where}: the table \"{name}\" has no titles"
    for label in (node for node in tree(window) if node.getRoleName() == "label"):
        for target in related(label, pyatspi.RELATION_LABEL_FOR):
            if not target:
                yield f"{where}: the label \"{label.name}\" is that of something without a name"
    yield from (f"{where}: {count} times {role} \"{name}\"" for (role, name), count in seen.items() if count > 1)
