#!/usr/bin/python3
"""What a screen reader finds of the print dialog, asked over the bus of assistive tools.

    xvfb-run -a tests/qt/on_x_server tests/qt/check_accessibility.py PROGRAM SOURCES LANGUAGE

PROGRAM is special-pages-print, SOURCES the folder with examples/. The program is driven by nothing but the actions that
it offers to assistive tools. Everything that is wrong is printed, and the exit code is 1.
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

# What a person can use, or has to be able to name.
CONTROLS = {
    "check box", "check menu item", "combo box", "dialog", "entry", "link", "list", "list item", "menu", "menu item",
    "page tab", "page tab list", "password text", "popup menu", "push button", "radio button", "radio menu item",
    "slider", "spin button", "table", "table cell", "table column header", "table row header", "text",
    "toggle button", "tree", "tree item",
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


def wait_for(what, find):
    """The first thing but None, False or an empty list that find() answers. What it meets may be on its way out."""
    turn = GLib.MainContext.default()
    end = time.monotonic() + SECONDS
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

    def window(self, name):
        for window in children(self.app):
            if window.get_name() == name and is_seen(window):
                return window
        return None

    def is_tab_widget(self, node):
        """Takes the keyboard for its row of tabs, which is what has a name."""
        return any(child.get_role_name() == "page tab list" for child in children(node))

    def audit(self, window, fewest):
        """Every seen control of the window has a role and a name."""
        controls = 0
        for node in below(window):
            role = node.get_role_name()
            if not is_seen(node) or self.is_tab_widget(node):
                continue
            if role not in CONTROLS and not is_(node, Atspi.StateType.FOCUSABLE):
                continue
            controls += 1
            if role not in CONTROLS:
                self.wrong.append(f"in {window.get_name()}: a control whose role is {title_of(node)}")
            if not node.get_name().strip():
                self.wrong.append(f"in {window.get_name()}: a {role} without a name below {title_of(node.get_parent())}")
        if controls < fewest:
            self.wrong.append(f"in {window.get_name()}: {controls} controls, expected {fewest} or more")

    def expect_controls(self, window, expected):
        """These roles and names, each as often as it is listed."""
        found = [(node.get_role_name(), node.get_name()) for node in below(window) if is_seen(node)]
        for each in expected:
            self.expect(f"in {window.get_name()}: how often there is {each}", found.count(tuple(each)), 1)

    def labels_of(self, node):
        return [relation.get_target(i).get_name() for relation in node.get_relation_set()
                if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
                for i in range(relation.get_n_targets())]

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

    def check_inserts(self, window):
        opener, title = self.words["inserts opener"], self.words["inserts title"]
        act(wait_for("the button for inserts", lambda: self.find(window, "push button", opener)), "Press")
        dialog = wait_for("the inserts dialog", lambda: self.window(title))
        wait_for("the inserts dialog in front", lambda: is_(dialog, Atspi.StateType.ACTIVE))
        self.audit(dialog, 12)
        self.expect_controls(dialog, self.words["inserts"])
        papers = wait_for("the menu of papers", lambda: self.find(dialog, "combo box", self.words["papers"]))
        self.expect("what the menu of papers is for", self.labels_of(papers), [self.words["papers label"]])
        self.check_papers(papers)
        act(self.find(dialog, "push button", self.words["cancel"]), "Press")
        wait_for("the end of the inserts dialog", lambda: not is_seen(dialog))

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
        dialog = self.window(self.words["inserts title"])
        shown = wait_for("the chosen paper", lambda: next(
            (node for node in below(dialog) if node.get_role_name() == "text"
             and node.get_name() == self.words["papers label"]), None))

        def text():
            field = shown.get_text_iface()
            return field.get_text(0, field.get_character_count())

        wait_for("the chosen size in the field below it", lambda: a5 in text())

    # ---- The question -------------------------------------------------------------------------------------------

    def check_question(self, window):
        """A dialog without a title has a name as well."""
        act(wait_for("the button that deletes all",
                     lambda: self.find(window, "push button", self.words["delete all"])), "Press")
        question = wait_for("the question", lambda: self.window(self.words["question"]))
        self.audit(question, 3)
        self.expect("what the question says", question.get_description(), self.words["question text"])
        act(self.find(question, "push button", self.words["cancel"]), "Press")
        wait_for("the end of the question", lambda: not is_seen(question))

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
        self.check_inserts(window)
        self.check_question(window)
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
