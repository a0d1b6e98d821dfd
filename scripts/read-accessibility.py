#!/usr/bin/python3
"""Reads the running window through the AT-SPI bus, as a screen reader does.

Finds the application, reads the board and the choices as tables of 81 named
cells, reads the event log as a list of lines and as text, loads a puzzle by
pressing the puzzle frame's Next button through its accessible action, reads
the board again, and checks that every control shown has a name.

Exits 1 with the list of what is missing; prints what it read otherwise.
Usage: read-accessibility.py APPLICATION-NAME [SECONDS-TO-WAIT]
"""

import re
import sys
import time

import pyatspi

CELL = re.compile(r"^Row ([1-9]), column ([1-9]): (empty(, choices [1-9]( [1-9])*)?|[1-9](, given)?)$")
BOX = re.compile(r"^Box ([1-9])(: [0-9] digits? missing)?$")
CONTROLS = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_LIST, pyatspi.ROLE_SLIDER, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_TABLE, pyatspi.ROLE_MENU,
    pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_ENTRY,
}

failures = []


def fail(message):
    failures.append(message)


def find_application(name, seconds):
    deadline = time.time() + seconds
    while time.time() < deadline:
        desktop = pyatspi.Registry.getDesktop(0)
        for app in desktop:
            if app is not None and app.name == name:
                return app
        time.sleep(0.5)
    return None


def walk(node):
    yield node
    for child in node:
        if child is not None:
            yield from walk(child)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def find(app, role, name):
    for node in walk(app):
        if node.getRole() == role and node.name == name and showing(node):
            return node
    return None


def read_table(app, name, report=True):
    """The 81 cell names of a board, read through the table interface, by row;
    what is missing is a failure when `report`."""
    if not report:
        global failures
        kept, failures = failures, []
        try:
            return read_table(app, name)
        finally:
            failures = kept
    table = find(app, pyatspi.ROLE_TABLE, name)
    if table is None:
        fail(f"no table named {name!r}")
        return []
    cells = table.queryTable()
    if (cells.nRows, cells.nColumns) != (9, 9):
        fail(f"{name}: {cells.nRows} rows and {cells.nColumns} columns, not 9 and 9")
        return []
    names = []
    for row in range(9):
        for col in range(9):
            cell = cells.getAccessibleAt(row, col)
            text = cell.name if cell is not None else ""
            match = CELL.match(text)
            if not match or (int(match.group(1)), int(match.group(2))) != (row + 1, col + 1):
                fail(f"{name}: row {row + 1}, column {col + 1} is named {text!r}")
            names.append(text)
    # The choices' box counts stand after the cells.
    for index in range(81, table.childCount):
        text = table.getChildAtIndex(index).name
        if not BOX.match(text):
            fail(f"{name}: child {index} is named {text!r}")
    return names


def read_log(app):
    log = find(app, pyatspi.ROLE_LIST, "Event log")
    if log is None:
        fail("no list named 'Event log'")
        return []
    lines = [log.getChildAtIndex(i).name for i in range(log.childCount)]
    text = log.queryText()
    whole = text.getText(0, text.characterCount)
    if not lines or not any(lines):
        fail("the event log has no lines")
    if whole != "\n".join(lines):
        fail("the event log's text is not its lines")
    return lines


def press(app, name, description_part):
    for node in walk(app):
        if (node.getRole() == pyatspi.ROLE_PUSH_BUTTON and node.name == name and showing(node)
                and description_part in node.description):
            node.queryAction().doAction(0)
            return True
    fail(f"no button {name!r} whose description holds {description_part!r}")
    return False


def unnamed_controls(app):
    missing = []
    for node in walk(app):
        if node.getRole() in CONTROLS and showing(node) and not node.name.strip():
            missing.append(f"{node.getRoleName()} in {node.parent.name!r}")
    return missing


def main():
    name = sys.argv[1]
    seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 30
    app = find_application(name, seconds)
    if app is None:
        print(f"read-accessibility: no application {name!r} on the bus", file=sys.stderr)
        return 1
    before = read_table(app, "Board")
    log_before = read_log(app)
    if press(app, "Next", "next puzzle"):
        deadline = time.time() + seconds
        board = before
        while time.time() < deadline and not any(n.endswith(", given") for n in board):
            time.sleep(0.5)
            board = read_table(app, "Board", report=False)
        if not any(n.endswith(", given") for n in board):
            fail("no given on the board after pressing Next")
    board = read_table(app, "Board")
    choices = read_table(app, "Choices for cells")
    lines = read_log(app)
    for control in unnamed_controls(app):
        fail(f"a {control} has no name")
    if failures:
        for message in failures:
            print("read-accessibility: " + message, file=sys.stderr)
        return 1
    givens = sum(n.endswith(", given") for n in board)
    print(f"Board: 81 cells named, {givens} givens; e.g. {board[0]!r}")
    print(f"Choices for cells: {len(choices)} cells named; e.g. {choices[0]!r}")
    print(f"Event log: {len(log_before)} lines at start, {len(lines)} after Next; last: {lines[-1]!r}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
