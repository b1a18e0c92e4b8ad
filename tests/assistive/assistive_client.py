#!/usr/bin/python3
"""assistive_client.py APPLICATION [--gtest_output=json:FILE]: uses the application as assistive technology does.

Finds every field, button and menu item over AT-SPI by role and name, enters text and presses buttons through the
accessible interfaces, and checks the accessible tree. Needs a screen and a session bus. Each step depends on the
former ones; results are printed in the format of GoogleTest.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # seconds, enough for a slow and busy machine
PASSWORD, NEW_PASSWORD = "JQQJQJ", "QJQQJJ"  # No other text on the screen has two of these letters in a row.
PART_OF_PASSWORD = re.compile("[JQ]{2}|^[JQ]$")
DOWN, RETURN, ESCAPE = 0xff54, 0xff0d, 0xff1b  # as the window system numbers the keys


class Missing(Exception):
    """An expected object did not appear."""


class Late:
    """A text that is computed when it is needed."""

    def __init__(self, make):
        self.make = make

    def __str__(self):
        return self.make()


def until(condition, what):
    """Polls the condition and returns its first true result."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = condition()
        except (GLib.Error, FileNotFoundError):  # It went away while it was looked at.
            found = None
        if found:
            return found
        while GLib.MainContext.default().iteration(False):  # Events are heard here.
            pass
        time.sleep(0.05)
    raise Missing(what)


def is_usable(node):
    states = node.get_state_set()
    return all(states.contains(state) for state in (Atspi.StateType.SHOWING, Atspi.StateType.ENABLED))


def is_focused(node):
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)


def descendants(node):
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is None:
            continue
        yield child
        if child.get_role() != Atspi.Role.TABLE:
            yield from descendants(child)


def names_of(node):
    """What it calls itself, and what the labels say that belong to it: a pop-up calls itself by its choice."""
    names = [node.get_name()]
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            names += [relation.get_target(i).get_name() for i in range(relation.get_n_targets())]
    return names


class Client:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.process = None
        self.spoken = []  # what a screen reader says: the names of what gets the focus, and notifications
        self.texts = []  # of all events
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:")

    def hear(self, event):
        if isinstance(event.any_data, str):
            self.texts.append(event.any_data)
        kind = event.type.rpartition(":")[2]
        try:
            if event.detail1 and (kind == "focused"
                                  or kind == "showing" and event.source.get_role() == Atspi.Role.NOTIFICATION):
                name = event.source.get_name()
                if self.spoken[-1:] != [name]:  # A window that comes to the front repeats the focus.
                    self.spoken.append(name)
        except GLib.Error:  # It has gone already.
            pass

    def expect_spoken(self, *names, perhaps=None):
        """And nothing else since the last time, but perhaps what has the focus in a window that comes to the front."""
        until(lambda: [name for name in self.spoken if name != perhaps] == list(names),
              Late(lambda: f"to hear {names} and not {self.spoken}"))
        self.spoken.clear()

    def start(self, *arguments):
        environment = dict(os.environ, HOME=str(self.folder), XDG_STATE_HOME="", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                           LC_ALL="C.UTF-8")
        self.process = subprocess.Popen([self.program, *arguments], env=environment, cwd=self.folder)
        until(self.application, "the application")

    def application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_process_id() == self.process.pid and child.get_child_count() > 0:
                return child
        return None

    def find_all(self, role, name):
        return [node for node in descendants(self.application())
                if node.get_role_name() == role and name in names_of(node)]

    def find(self, role, name):
        """The one that can be used; the last of several, which stands in front."""
        return until(lambda: next((node for node in reversed(self.find_all(role, name)) if is_usable(node)), None),
                     f"{role} '{name}'")

    def item(self, name):
        """A menu item, which need not be on the screen."""
        return until(lambda: next((node for node in self.find_all("menu item", name)
                                   if node.get_state_set().contains(Atspi.StateType.ENABLED)), None),
                     f"menu item '{name}'")

    @staticmethod
    def press(node):
        assert Atspi.Action.do_action(node, 0), f"{node.get_name()} cannot be pressed"

    def click(self, name):
        self.press(self.find("push button", name))

    def choose(self, name):
        self.press(self.item(name))

    def put(self, name, text, role="text"):
        """Text into the field of that name, as dictation puts it."""
        assert Atspi.EditableText.set_text_contents(self.find(role, name), text), f"{name} takes no text"

    def text(self, name, role="text"):
        field = self.find(role, name)
        return Atspi.Text.get_text(field, 0, Atspi.Text.get_character_count(field))

    @staticmethod
    def last_word(field):
        """That at a caret at the end of the text. The toolkit does not know the newer form of the question."""
        end = Atspi.Text.get_character_count(field)
        return Atspi.Text.get_text_at_offset(field, end, Atspi.TextBoundaryType.WORD_START).content

    def names_in_list(self):
        return self.names_in_column("Contacts", 1)

    def names_in_column(self, table_name, column):
        table = self.find("table", table_name)
        return [Atspi.Table.get_accessible_at(table, row, column).get_name()
                for row in range(Atspi.Table.get_n_rows(table))]

    def categories_in_list(self):
        """As the first cells of the rows say them, which speak for their rows."""
        return [re.search("category (.*), ", name)[1] for name in self.names_in_column("Contacts", 0)]

    def select(self, row):
        table = self.find("table", "Contacts")
        for selected in Atspi.Table.get_selected_rows(table):
            Atspi.Table.remove_row_selection(table, selected)
        assert Atspi.Table.add_row_selection(table, row), f"row {row} cannot be selected"

    def expect_names(self, *names):
        until(lambda: self.names_in_list() == list(names), f"{names} in the list; it has {self.names_in_list()}")

    def click_window_beside_sheet(self):
        """On the lower left corner of the document window."""
        frame = next(node for node in descendants(self.application()) if node.get_role_name() == "frame")
        extents = Atspi.Component.get_extents(frame, Atspi.CoordType.SCREEN)
        Atspi.generate_mouse_event(extents.x + 20, extents.y + extents.height - 20, "b1c")

    def focus(self, role, name):
        node = self.find(role, name)
        Atspi.Component.grab_focus(node)
        until(lambda: is_focused(node), f"the focus in {name}")

    @staticmethod
    def key(symbol):
        Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)

    @staticmethod
    def type(text):
        Atspi.generate_keyboard_event(0, text, Atspi.KeySynthType.STRING)


# The steps, in the order in which they are taken.


def the_keyboard_stays_with_a_sheet(client):
    client.start()
    field = client.find("password text", "Password:")
    until(lambda: is_focused(field), "the focus in the first field of the sheet")
    client.click_window_beside_sheet()
    client.key(ESCAPE)
    until(lambda: client.process.poll() is not None, "the end by the Escape key, which a sheet takes")


def give_first_password(client):
    client.put("Password:", PASSWORD, "password text")
    client.put("Retype password:", PASSWORD, "password text")
    client.click("OK")
    client.find("label", "Password accepted")
    client.click("OK")
    until(lambda: not client.find_all("label", "Password accepted"), "the end of the alert")


def a_new_document_takes_its_password(client):
    client.start()
    client.focus("password text", "Password:")
    client.type(NEW_PASSWORD)  # in secret, then shown
    client.press(client.find("check box", "Show password"))
    until(lambda: client.text("Password:") == NEW_PASSWORD, "the password shown")
    client.put("Retype password:", PASSWORD)
    client.press(client.find("check box", "Show password"))
    client.click("OK")
    client.click("Retry")  # What was typed is back, and shown.
    client.put("Password:", PASSWORD)
    client.click("OK")
    client.find("label", "Password accepted")
    client.click("OK")
    until(lambda: not client.find_all("label", "Password accepted"), "the end of the alert")
    client.find("label", "Press Add to make your first contact")


def contacts_are_added_and_edited(client):
    for first, last in (("Zoë", "Åström"), ("Boris", "Kant")):
        client.click("Add")
        until(lambda: is_focused(client.find("text", "First name:")), "the focus in the first name")
        client.put("First name:", first)
        client.put("Last name:", last)
    client.expect_names("Zoë Åström", "Boris Kant")
    client.put("Email work:", "boris@kant.example")
    client.put("Note", "Prefers letters.\nAnd blue glaze.")
    assert client.text("Note") == "Prefers letters.\nAnd blue glaze."
    client.find("push button", "Open Email work")
    client.press(client.find("check box", "Edit"))
    assert client.text("Email work") == "boris@kant.example", "the card to be read"
    assert client.text("Name") == "Boris Kant"
    client.press(client.find("check box", "Edit"))


def a_category_is_made_coloured_and_given(client):
    client.choose("Edit Categories…")
    client.find("table", "Categories")
    client.click("Add")
    until(lambda: client.text("Name:") == "Generic 1", "the new category in the field")
    client.put("Name:", "Family")
    client.click("Label colour")
    for component, value in (("Red:", 192), ("Green:", 57), ("Blue:", 43)):
        box = client.find("spin button", component)
        Atspi.Value.set_current_value(box, value)
        assert client.last_word(box) == str(value)
    until(lambda: client.names_in_column("Categories", 0) == ["Generic, 2 contacts, 1 of 2",
                                                              "Family, 0 contacts, 2 of 2"], "the name in the table")
    client.click("Done")
    until(lambda: not client.find_all("table", "Categories"), "the end of the sheet")
    client.press(client.find("combo box", "Category:"))
    client.find("list item", "Family")
    client.key(DOWN)
    client.key(RETURN)
    until(lambda: client.categories_in_list() == ["Generic", "Family"], "the category in the list")
    client.find("filler", "Category Family")


def the_list_is_searched(client):
    client.put("Search", "BLUE glaze")
    client.expect_names("Boris Kant")
    client.find("label", ' search string "BLUE glaze"')
    client.find("combo box", "Category to show")
    client.click("Show all records")
    client.expect_names("Zoë Åström", "Boris Kant")


def a_screen_reader_speaks_what_is_done_and_nothing_else(client):
    client.focus("text", "Search")
    client.spoken.clear()
    client.type("kant")
    client.expect_spoken("1 contact found")
    client.type("x")
    client.expect_spoken("No contact matches")
    client.key(ESCAPE)
    client.expect_spoken("All contacts: 2")
    client.key(DOWN)
    client.expect_spoken("Zoë Åström, category Generic, 1 of 2")
    client.key(DOWN)
    client.expect_spoken("Boris Kant, category Family, 2 of 2")
    client.focus("text", "Search")
    client.click("Add")
    client.expect_spoken("Search", "First name")
    client.type("anna")
    client.expect_names("Zoë Åström", "Boris Kant", "anna Last Name")
    client.choose("Lock Document…")
    client.expect_spoken("OK")
    client.click("OK")
    client.expect_spoken("Enter the master password to open it", "Document locked", perhaps="First name")
    client.put("Enter the master password to open it", PASSWORD, "password text")
    client.click("Open")
    client.expect_spoken("anna Last Name, category Family, 3 of 3", "Document unlocked",
                         perhaps="Enter the master password to open it")


def positions_beyond_the_ends_are_answered(client):
    """A screen reader asks for positions that it saw before rows went."""
    client.put("Search", "anna")
    client.expect_names("anna Last Name")
    search = client.find("text", "Search")
    assert client.last_word(search) == "anna"
    Atspi.EditableText.insert_text(search, 2**31 - 1, "!", 1)
    assert client.text("Search") == "anna!"
    client.put("Search", "anna")
    for node in descendants(client.application()):
        assert node.get_child_at_index(99999) is None
    tables = [client.find("table", "Contacts")]
    ask_beyond_the_ends(client, tables)
    client.select(0)
    client.choose("Delete Contact…")
    client.click("Delete Contact")
    client.expect_names()
    ask_beyond_the_ends(client, tables)
    client.click("Show all records")
    client.expect_names("Zoë Åström", "Boris Kant")
    client.choose("Edit Categories…")
    tables.append(client.find("table", "Categories"))
    ask_beyond_the_ends(client, tables)
    client.click("Done")
    client.choose("Lock Document…")
    client.click("OK")
    client.find("password text", "Enter the master password to open it")
    ask_beyond_the_ends(client, tables)
    client.put("Enter the master password to open it", PASSWORD, "password text")
    client.click("Open")
    client.expect_names("Zoë Åström", "Boris Kant")


def ask_beyond_the_ends(client, tables):
    cells = ("is_selected", "get_row_extent_at", "get_column_extent_at", "get_accessible_at", "get_index_at")
    lines = ("get_row_column_extents_at_index", "get_row_at_index", "get_column_at_index", "is_row_selected",
             "is_column_selected", "add_row_selection", "remove_row_selection", "add_column_selection",
             "remove_column_selection", "get_row_header", "get_column_header", "get_row_description",
             "get_column_description")
    questions = [(question, place) for question in cells for place in ((-1, -1), (99, 0), (0, 99), (2**31 - 1, 0))]
    questions += [(question, (place,)) for question in lines for place in (-1, 99999)]
    for table in tables:
        for question, place in questions:
            try:
                getattr(Atspi.Table, question)(table, *place)
            except GLib.Error:  # Refused, or the table has gone.
                pass
            assert client.application(), f"{question}{place} ended it"


def no_event_holds_a_part_of_a_password(client):
    client.choose("Change Master Password…")
    for name, password in (("Old Master Password:", PASSWORD), ("New Password:", NEW_PASSWORD),
                           ("Retype New Password:", NEW_PASSWORD)):
        client.focus("password text", name)
        client.type(password)
    client.press(client.find("check box", "Show password"))
    until(lambda: client.text("New Password:") == NEW_PASSWORD, "the password shown")
    client.put("New Password:", PASSWORD)
    client.press(client.find("check box", "Show password"))
    client.put("Retype New Password:", PASSWORD, "password text")
    client.click("OK")
    client.find("label", "Password changed successfuly")
    client.click("OK")
    client.choose("Lock Document…")
    client.click("OK")
    for password, button in ((NEW_PASSWORD, "OK"), (PASSWORD, None)):
        client.focus("password text", "Enter the master password to open it")
        client.type(password)
        client.key(RETURN)
        if button:
            client.click(button)
    client.expect_names("Zoë Åström", "Boris Kant")
    leaks = [text for text in client.texts if PART_OF_PASSWORD.search(text)]
    assert client.texts and not leaks, f"events hold {leaks}"
    client.press(client.find("check box", "Edit"))


def captions_are_renamed_and_flagged(client):
    client.choose("Edit Captions…")
    client.put("Caption of Phone work", "Desk:")
    client.press(client.find("check box", "Phone work opens"))
    client.click("Done")
    client.select(1)
    client.put("Desk:", "+47 22 90 11 40")
    client.find("push button", "Open Desk")


def a_copy_is_undone_and_a_contact_deleted(client):
    client.select(0)
    client.choose("Duplicate Contact")
    client.expect_names("Zoë Åström", "Zoë Åström", "Boris Kant")
    client.choose("Undo Duplicate Record")
    client.expect_names("Zoë Åström", "Boris Kant")
    client.select(0)
    client.choose("Delete Contact…")
    client.click("Delete Contact")
    client.expect_names("Boris Kant")


def the_document_is_saved_and_opened_again(client):
    file = client.folder / "assisted.vexcards"
    client.choose("Save")
    client.put("File name:", str(file))
    client.click("Save")
    until(file.exists, "the file")
    # Another announcement that comes at the same time is said in the same sentence.
    until(lambda: any("Document saved" in words for words in client.spoken),
          Late(lambda: f"to hear that the document is saved and not only {client.spoken[-9:]}"))
    client.choose("Quit")
    assert client.process.wait(PATIENCE) == 0

    client.start(str(file))
    field = "Enter the master password to open it"
    until(lambda: is_focused(client.find("password text", field)), "the focus in the password field")
    client.put(field, PASSWORD, "password text")
    client.click("Open")
    client.expect_names("Boris Kant")
    assert client.categories_in_list() == ["Family"]
    assert client.text("Desk") == "+47 22 90 11 40", "the caption and the number are back"
    assert client.text("Note") == "Prefers letters.\nAnd blue glaze."


def a_print_and_a_save_are_given_up(client):
    for command, dialog in (("Print…", "Print"), ("Save As…", "Save Document")):
        client.choose(command)
        until(lambda: client.find_all("dialog", dialog), f"the dialog {dialog}")
        client.click("Cancel")
        until(lambda: not client.find_all("dialog", dialog), f"the end of the dialog {dialog}")
    client.expect_names("Boris Kant")


def nothing_that_can_be_used_is_without_a_name(client):
    client.press(client.find("check box", "Edit"))
    client.find("text", "First name:")
    for node in descendants(client.application()):
        if node.get_role_name() in ("push button", "check box", "combo box", "text", "password text", "menu item",
                                    "table", "spin button") and is_usable(node):
            assert node.get_name(), f"a {node.get_role_name()} in {node.get_parent().get_name()} has no name"


def what_was_never_saved_outlives_a_kill(client):
    client.process.terminate()
    assert client.process.wait(PATIENCE) == 0, "asked to end, it ends in order"
    client.start()
    give_first_password(client)
    client.click("Add")
    client.put("First name:", "Survivor")
    typed = time.time()
    autosaved = client.folder / ".local/state/vexarel/autosaved"
    until(lambda: [file for file in autosaved.glob("*.vexcards") if file.stat().st_mtime > typed],
          "the recovery file with what was typed")
    client.process.kill()
    client.process.wait()
    client.start()
    client.put("Enter the master password to open it", PASSWORD, "password text")
    client.click("Open")
    client.expect_names("Survivor Last Name")
    client.choose("Lock Document…")
    client.click("OK")
    client.find("password text", "Enter the master password to open it")
    assert not client.find_all("table", "Contacts"), "a locked window has no list"


STEPS = [the_keyboard_stays_with_a_sheet, a_new_document_takes_its_password, contacts_are_added_and_edited,
         a_category_is_made_coloured_and_given, the_list_is_searched,
         a_screen_reader_speaks_what_is_done_and_nothing_else, positions_beyond_the_ends_are_answered,
         no_event_holds_a_part_of_a_password, captions_are_renamed_and_flagged,
         a_copy_is_undone_and_a_contact_deleted,
         the_document_is_saved_and_opened_again, a_print_and_a_save_are_given_up,
         nothing_that_can_be_used_is_without_a_name, what_was_never_saved_outlives_a_kill]


def run_step(step, client):
    """What was wrong; null if nothing was."""
    print(f"[ RUN      ] Assistive.{step.__name__}", flush=True)
    try:
        step(client)
    except (AssertionError, Missing, GLib.Error, subprocess.TimeoutExpired, OSError) as problem:
        print(f"[  FAILED  ] Assistive.{step.__name__}: {type(problem).__name__}: {problem}", flush=True)
        return f"{type(problem).__name__}: {problem}"
    print(f"[       OK ] Assistive.{step.__name__}", flush=True)
    return None


def main(program, report):
    Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)  # Its own is 0.8 s for a reply.
    cases = []
    with tempfile.TemporaryDirectory(prefix="vexarel-assistive-") as folder:
        client = Client(program, pathlib.Path(folder))
        for step in STEPS:
            failure = run_step(step, client)
            cases.append({"name": step.__name__, "result": "COMPLETED",
                          **({"failures": [{"failure": failure}]} if failure else {})})
            if failure:
                break
        if client.process and client.process.poll() is None:
            client.process.kill()
            client.process.wait()
    if report:
        pathlib.Path(report).write_text(json.dumps({"testsuites": [{"name": "Assistive", "testsuite": cases}]}),
                                        encoding="utf-8")
    return 1 if any("failures" in case for case in cases) else 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    OUTPUT = "--gtest_output=json:"
    sys.exit(main(sys.argv[1], next((a[len(OUTPUT):] for a in sys.argv[2:] if a.startswith(OUTPUT)), None)))
