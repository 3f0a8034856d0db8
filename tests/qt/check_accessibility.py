#!/usr/bin/python3
"""What a screen reader finds of the print dialog, asked over the bus of assistive tools.

    xvfb-run -a tests/qt/on_x_server tests/qt/check_accessibility.py PROGRAM SOURCES LANGUAGE

PROGRAM is special-pages-print, SOURCES the folder with examples/. The program is driven by nothing but what it offers to
assistive tools: actions, and texts and numbers that they may set. accessible_words.json says how each window is reached and
what is in it. Everything that is wrong is printed, and the exit code is 1.
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)  # of interfaces whose successors this version does not have yet

SECONDS = 40  # the longest that anything is waited for: machines are slow, and instrumented programs slower

LITTLE = 5  # for what is right at once or wrong

# What a person can use, or has to be able to name.
CONTROLS = {
    "alert", "check box", "check menu item", "combo box", "dialog", "document frame", "entry", "link", "list",
    "list item", "menu", "menu item", "page tab", "page tab list", "password text", "popup menu", "push button",
    "radio button", "radio menu item", "slider", "spin button", "table", "table cell", "table column header",
    "table row header", "text", "toggle button", "tree", "tree item",
}

def children(node):
    return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]


def below(node):
    yield node
    for child in children(node):
        yield from below(child)


def is_(node, *states):
    held = node.get_state_set()
    return all(held.contains(state) for state in states)


def is_seen(node):
    return is_(node, Atspi.StateType.SHOWING, Atspi.StateType.VISIBLE)


def is_enabled(node):
    return is_(node, Atspi.StateType.ENABLED, Atspi.StateType.SENSITIVE)


def text_of(node):
    text = node.get_text_iface()
    return None if text is None else text.get_text(0, text.get_character_count())


def labels_of(node):
    return [relation.get_target(i).get_name() for relation in node.get_relation_set()
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
            for i in range(relation.get_n_targets())]


def title_of(node):
    return node.get_role_name() + ' "' + node.get_name() + '"'


def act(node, name):
    """Carries out an action that the node offers; without it the check ends."""
    actions = node.get_action_iface()
    for i in range(0 if actions is None else actions.get_n_actions()):
        if actions.get_action_name(i) == name:
            if not actions.do_action(i):
                raise Missing(title_of(node) + " refused its action " + name)
            return
    raise Missing(title_of(node) + " has no action " + name)


class Missing(Exception):
    """Something without which the rest cannot be checked."""


def wait_for(what, find, seconds=SECONDS):
    """The first thing but None, False or an empty list that find() answers. What it meets may be on its way out."""
    turn = GLib.MainContext.default()
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        while turn.iteration(False):
            pass
        try:
            found = find()
        except GLib.Error:
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise Missing("this never came: " + what)


class Check:
    def __init__(self, words):
        self.words = words
        self.wrong = []
        self.app = None

    def expect(self, what, found, expected):
        if found != expected:
            self.wrong.append(f"{what}\n    found    {found}\n    expected {expected}")

    def find(self, top, role, name):
        """The node with role and name that is seen."""
        for node in below(top):
            if node.get_role_name() == role and node.get_name() == name and is_seen(node):
                return node
        return None

    def in_front(self, what, find):
        """The first thing that find() answers when it is asked of the window in front, which may still change."""
        def found():
            for window in children(self.app):
                if is_seen(window) and is_(window, Atspi.StateType.ACTIVE):
                    return find(window)
            return None

        return wait_for(what + " in front", found)

    def front(self, name):
        return self.in_front(name, lambda window: window if window.get_name() == name else None)

    def is_tab_widget(self, node):
        """Takes the keyboard for its row of tabs, which is what has a name."""
        return any(child.get_role_name() == "page tab list" for child in children(node))

    def is_said_by_alert(self, node):
        """The sentence of an alert, which takes clicks so that it can be copied, but is no control."""
        return node.get_role_name() == "label" and node.get_parent().get_role_name() == "alert"

    def controls(self, window):
        """What is seen and can be used, the window itself first."""
        return [node for node in below(window)
                if is_seen(node) and not self.is_tab_widget(node) and not self.is_said_by_alert(node)
                and (node.get_role_name() in CONTROLS or is_(node, Atspi.StateType.FOCUSABLE))]

    def audit(self, window, fewest):
        """Every seen control of the window has a role and a name."""
        controls = self.controls(window)
        for node in controls:
            role = node.get_role_name()
            if role not in CONTROLS:
                self.wrong.append(f"in {window.get_name()}: a control whose role is {title_of(node)}")
            if not node.get_name().strip():
                self.wrong.append(f"in {window.get_name()}: a {role} without a name below {title_of(node.get_parent())}")
        if len(controls) < fewest:
            self.wrong.append(f"in {window.get_name()}: {len(controls)} controls, expected {fewest} or more")

    def expect_controls(self, window, expected):
        """These roles and names, each as often as it is listed."""
        found = [(node.get_role_name(), node.get_name()) for node in below(window) if is_seen(node)]
        for each in expected:
            self.expect(f"in {window.get_name()}: how often there is {each}", found.count(tuple(each)), 1)

    def expect_all_controls(self, window, expected):
        """These roles and names in this order, and no others; the words say which of them are disabled."""
        found = [[node.get_role_name(), node.get_name()] + ([] if is_enabled(node) else ["disabled"])
                 for node in self.controls(window)[1:] if node.get_role_name() != "link"]
        self.expect(f"the controls of {window.get_name()}", found, expected)

    def expect_keyboard(self, window, expected):
        self.expect_soon(f"what has the keyboard in {window.get_name()}",
                         lambda: [[node.get_role_name(), node.get_name()] for node in self.controls(window)
                                  if is_(node, Atspi.StateType.FOCUSED)], [expected])

    def expect_soon(self, what, find, expected):
        """What a tool has done may be shown a little later."""
        try:
            wait_for(what, lambda: find() == expected, LITTLE)
        except Missing:
            self.expect(what, find(), expected)

    # ---- What a person does through an assistive tool -----------------------------------------------------------

    def press(self, name):
        """Presses the button of the window in front."""
        act(self.in_front("the button " + name,
                          lambda window: self.find(window, "push button", name)
                          or self.find(window, "radio button", name)), "Press")

    def choose(self, label, *items):
        """Picks an item of the list with that label, through the menus that lead to it."""
        box = self.in_front("the list labelled " + label, lambda window: next(
            (node for node in below(window) if node.get_role_name() == "combo box" and is_seen(node)
             and label in labels_of(node)), None))
        menu = self.open_below(box)
        for item in items[:-1]:
            menu = self.open_below(wait_for("the item " + item, lambda: self.find(menu, "menu item", item)))
        act(wait_for("the item " + items[-1], lambda: self.item(menu, items[-1])), "Press")
        wait_for("the end of the menu", lambda: box.get_child_count() == 0)

    def item(self, menu, name):
        """The one that is chosen has a check mark."""
        return self.find(menu, "menu item", name) or self.find(menu, "check box", name)

    def close(self):
        """Cancels what is open, down to the print dialog."""
        while True:
            window = self.in_front("a window", lambda window: window)
            if window.get_name() == self.words["dialog title"]:
                return
            self.press(self.words["cancel"])
            wait_for("the end of " + window.get_name(), lambda: not is_seen(window))

    # ---- Every window -------------------------------------------------------------------------------------------

    def check_window(self, words):
        """Buttons to press and items to choose lead to a window, whose controls are as listed."""
        for step in words["steps"]:
            if isinstance(step, str):
                self.press(step)
            else:
                self.choose(*step)
        window = self.front(words["title"])
        self.audit(window, len(words["controls"]))
        self.expect_all_controls(window, words["controls"])
        if "keyboard" in words:
            self.expect_keyboard(window, words["keyboard"])
        for spin in self.controls(window):
            if spin.get_role_name() == "spin button" and is_enabled(spin):
                self.check_spin(window, spin)
        self.close()

    def check_spin(self, window, spin):
        """It says what the field beside it shows, and its actions step."""
        field = self.find(window, "text", spin.get_name())
        if field is None:
            self.wrong.append(f"in {window.get_name()}: no field beside the {title_of(spin)}")
            return
        before = text_of(field)
        digits = len(before.partition(".")[2])
        stepped = f"{float(before) + 10 ** -digits:.{digits}f}"
        for action, number in (("Increase", stepped), ("Decrease", before)):
            act(spin, action)
            self.expect_soon(f"the field after {action} of the {title_of(spin)}", lambda: text_of(field), number)
            self.expect_soon(f"the number after {action} of the {title_of(spin)}", lambda: text_of(spin), number)

    # ---- The pane -----------------------------------------------------------------------------------------------

    def check_pane(self, window):
        tab = wait_for("the pane's tab", lambda: self.find(window, "page tab", self.words["tab"]))
        self.expect("the chosen tab", tab.get_parent().get_name(), self.words["tab"])
        table = wait_for("the table with its rows", lambda: self.table(window))
        self.audit(window, 40)
        self.expect_controls(window, self.words["pane"])
        self.check_rows(table)

    def table(self, window):
        table = self.find(window, "table", self.words["table"])
        return table if table and table.get_table_iface().get_n_rows() == len(self.words["rows"]) else None

    def check_rows(self, node):
        table = node.get_table_iface()
        cells = [[table.get_accessible_at(row, column) for column in range(table.get_n_columns())]
                 for row in range(table.get_n_rows())]
        self.expect("the rows", [row[0].get_name() for row in cells], self.words["rows"])
        self.expect("the cells behind the first", [cell.get_name() for cell in cells[1][1:]], self.words["cells"])
        self.expect("the heads of the columns",
                    [table.get_column_header(i).get_name() for i in range(table.get_n_columns())],
                    self.words["columns"])
        self.expect("the heads of the rows", [table.get_row_header(i).get_name() for i in range(len(cells))],
                    self.words["rows"])

    # ---- The inserts dialog -------------------------------------------------------------------------------------

    def open_inserts(self):
        self.press(self.words["inserts opener"])
        return self.front(self.words["inserts title"])

    def check_inserts(self):
        dialog = self.open_inserts()
        papers = wait_for("the menu of papers", lambda: self.find(dialog, "combo box", self.words["papers"]))
        self.expect("what the menu of papers is for", labels_of(papers), [self.words["papers label"]])
        self.check_papers(papers)
        self.close()

    def open_below(self, opener):
        """The menu that the node opens, with its place in the tree."""
        act(opener, "ShowMenu")
        menu = wait_for("the menu of " + title_of(opener),
                        lambda: next((child for child in children(opener) if is_seen(child)), None))
        self.expect("what a menu is", menu.get_role_name(), "popup menu")
        self.expect("a menu is called as what opens it", menu.get_name(), opener.get_name())
        self.expect("a menu belongs to what opens it", title_of(menu.get_parent()), title_of(opener))
        return menu

    def check_papers(self, papers):
        top = self.open_below(papers)
        self.audit(top, 5)
        disabled = []
        for item in children(top):
            if not is_seen(item) or item.get_child_count() == 0:
                continue
            menu = self.open_below(item)
            self.audit(menu, 3)
            for choice in children(menu):
                reason = choice.get_description()
                if is_enabled(choice):
                    self.expect("the reason at the enabled " + title_of(choice), reason, "")
                elif is_seen(choice):
                    disabled.append([item.get_name(), choice.get_name(), reason])
                    self.expect("what the disabled " + title_of(choice) + " can do",
                                choice.get_action_iface().get_n_actions(), 0)
        self.expect("the papers that cannot be chosen, and why", disabled, self.words["disabled papers"])
        self.choose_paper(papers, top)

    def choose_paper(self, papers, top):
        """An item's own action picks it, and takes the menus away."""
        size, a5 = self.words["size"], "A5"
        item = wait_for("the menu of sizes", lambda: self.find(top, "menu item", size))
        if not any(is_seen(child) for child in children(item)):
            act(item, "ShowMenu")
        choice = wait_for("the size A5", lambda: self.find(item, "menu item", a5))
        act(choice, "Press")
        wait_for("the end of the menu", lambda: papers.get_child_count() == 0)
        dialog = self.front(self.words["inserts title"])
        shown = wait_for("the chosen paper", lambda: next(
            (node for node in below(dialog) if node.get_role_name() == "text"
             and node.get_name() == self.words["papers label"]), None))
        wait_for("the chosen size in the field below it", lambda: a5 in text_of(shown))

    def check_refusal(self):
        """The field that was refused gets the keyboard."""
        dialog = self.open_inserts()
        sheets = self.find(dialog, "text", self.words["sheets"])
        act(sheets, "SetFocus")
        wait_for("the keyboard in the number of sheets", lambda: is_(sheets, Atspi.StateType.FOCUSED))
        self.press(self.words["ok"])
        alert = self.front(self.words["refusal"])
        self.audit(alert, 2)
        self.expect("what a refusal is", alert.get_role_name(), "alert")
        self.expect_controls(alert, [["label", self.words["refusal"]]])
        self.expect_all_controls(alert, [["push button", self.words["ok"]]])
        self.press(self.words["ok"])
        wait_for("the end of the refusal", lambda: not is_seen(alert))
        self.expect_keyboard(self.front(self.words["inserts title"]), ["text", self.words["pages"]])
        self.close()

    def check_written(self, window):
        """What a tool writes and sets counts as what is typed: here 5 and 3 become an insert."""
        dialog = self.open_inserts()
        self.find(dialog, "text", self.words["pages"]).get_editable_text_iface().set_text_contents("5")
        self.find(dialog, "spin button", self.words["sheets"]).get_value_iface().set_current_value(3)
        self.press(self.words["ok"])
        wait_for("the end of the inserts dialog", lambda: not is_seen(dialog))
        table = self.find(window, "table", self.words["table"]).get_table_iface()
        rows = [table.get_accessible_at(row, 0).get_name() for row in range(table.get_n_rows())]
        self.expect("the row that was written", [row for row in rows if row not in self.words["rows"]],
                    [self.words["written row"]])

    # ---- The help -----------------------------------------------------------------------------------------------

    def check_help(self):
        """A page can be read, and its links lead to others and back."""
        words = self.words["help"]
        self.press(words["opener"])
        viewer = self.front(words["title"])
        self.audit(viewer, len(words["controls"]))
        self.expect_all_controls(viewer, words["controls"])
        page = wait_for("the page of the help", lambda: self.find(viewer, "document frame", words["page"]))
        self.expect("whether tools can write into the page", page.get_editable_text_iface(), None)
        self.check_page(page, words["first"])
        act(wait_for("the link " + words["followed"], lambda: self.find(page, "link", words["followed"])), "Press")
        wait_for("the page behind the link", lambda: text_of(page).startswith(words["second"]["lines"][0]))
        self.check_page(page, words["second"])
        self.press(words["back"])
        wait_for("the first page", lambda: text_of(page).startswith(words["first"]["lines"][0]))
        self.check_page(page, words["first"])
        self.press(words["close"])
        wait_for("the end of the help", lambda: not is_seen(viewer))

    def check_page(self, page, words):
        """Its first lines, the links in their order, and no character that cannot be read."""
        text = text_of(page)
        self.expect("the first lines of the page", text.splitlines()[:len(words["lines"])], words["lines"])
        self.expect("what cannot be read of the page", [c for c in text if not c.isprintable() and c != "\n"], [])
        self.expect("the links of the page", [[link.get_role_name(), link.get_name()] for link in children(page)],
                    [["link", name] for name in words["links"]])

    # ---- The question -------------------------------------------------------------------------------------------

    def check_question(self):
        """A dialog without a title has a name as well."""
        self.press(self.words["delete all"])
        question = self.front(self.words["question"])
        self.audit(question, 3)
        self.expect_all_controls(question, self.words["question buttons"])
        self.expect("what the question says", question.get_description(), self.words["question text"])
        self.close()

    # ---- The program --------------------------------------------------------------------------------------------

    def find_app(self, program):
        def app():
            desktop = Atspi.get_desktop(0)
            for child in children(desktop):
                if child.get_process_id() == program.pid and child.get_child_count() > 0:
                    return child
            if program.poll() is not None:
                raise Missing("the program has ended with " + str(program.returncode))
            return None

        self.app = wait_for("the program", app)
        self.app.set_cache_mask(Atspi.Cache.NONE)
        self.expect("the program's name", self.app.get_name(), "special-pages-print")

    def run(self, program):
        self.find_app(program)
        window = wait_for("the print dialog", lambda: next((w for w in children(self.app) if is_seen(w)), None))
        self.check_pane(window)
        for each in self.words["windows"]:
            self.check_window(each)
        self.check_inserts()
        self.check_refusal()
        self.check_help()
        self.check_question()
        self.check_written(window)
        self.audit(window, 40)
        cancel = wait_for("the button that cancels",
                          lambda: self.find(window, "push button", self.words["dialog cancel"]))
        act(cancel, "Press")
        self.expect("how the cancelled program ends", program.wait(SECONDS), 1)


def main():
    program, sources, language = sys.argv[1:]
    words = pathlib.Path(__file__).with_name("accessible_words.json").read_text(encoding="utf-8")
    check = Check(json.loads(words)[language])
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(
            os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1", LC_ALL="C.UTF-8",
            XDG_CONFIG_HOME=folder, XDG_STATE_HOME=folder, XDG_CACHE_HOME=folder, XDG_RUNTIME_DIR=folder,
            CUPS_SERVER=folder + "/no-server", FONTCONFIG_FILE=sources + "/tests/data/fonts.conf")
        running = subprocess.Popen(
            [program, "--ppd", sources + "/examples/ppd/production.ppd", "--settings",
             sources + "/examples/settings/handbook.json", "--lang", language, "--out", folder + "/printed.json"],
            env=environment, cwd=folder)
        try:
            check.run(running)
        except (Missing, GLib.Error, subprocess.TimeoutExpired) as missing:
            check.wrong.append(str(missing))
        finally:
            if running.poll() is None:
                running.kill()
            running.wait()
    for wrong in check.wrong:
        print("WRONG " + wrong, file=sys.stderr)
    sys.exit(1 if check.wrong else 0)


if __name__ == "__main__":
    main()
