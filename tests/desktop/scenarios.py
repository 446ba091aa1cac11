"""What users do with the program. Each scenario gets a person with an empty home folder; the
program is ended after it."""

import re
import time

from person import PATIENCE, Atspi, below, click, expect, is_, place, press, wait_for, write

LONG = 12_000_000  # rows of a file whose import takes seconds
FORMATS = {"inFormat": "HH:MM:SS\t+DD:MM:SS\tN\t2\t1", "outFormat": "HH MM SS\t+DD MM SS\tN\t2\t1",
           "toEpochA": '{"epochPopup":1,"epochDate":"2000-01-01"}'}
CRAB = ["05:34:31.97", "+22:00:52.1", "05 31 31.44", "+21 58 54.4"]
ANDROMEDA = ["00:40:22.08", "+41:41:07.1", "00 37 38.33", "+41 24 39.3"]
HEADINGS = ["Input RA (2000.0)", "Input Dec (2000.0)", "Output RA (1950.0)", "Output Dec (1950.0)"]
STORED = [tuple(ANDROMEDA[:2])]
STORED_AND_CRAB = STORED + [tuple(CRAB[:2])]


def opens(person, rows=STORED, locale="C.UTF-8", **settings):
    person.has_stored(rows, **FORMATS | settings)
    person.starts(len(rows), locale)


def types_crab(point="."):
    """Fills both fields, starting in the right ascension, and presses Return."""
    write(f"053431{point}97")
    press("Tab")
    write(f"+220052{point}1")
    press("Return")


def adds_crab(person):
    person.clicks("Entry: RA")
    types_crab()


def exported(person):
    lines = next(person.home.glob("**/list.txt")).read_text(encoding="utf-8").splitlines()
    return [line.split("\t") for line in lines]


def edits_by_keys_as_by_mouse(person):
    opens(person, STORED * 2, DataEntryMask=0)
    person.chooses("Output Epoch", 0, "Other")
    for field, by_mouse in ("Entry: RA", True), ("Entry: RA", False), ("Output Epoch: Date", False):
        person.clicks(field)
        press("ctrl+a")
        write("abcdef")
        expect(lambda: person.text(field), "abcdef")
        for item, text in (("Select All", "abcdef"), ("Cut", ""), ("Undo", "abcdef"),
                           ("Select All", "abcdef"), ("Paste", "abcdef"), ("Select All", "abcdef"),
                           ("Delete", ""), ("Paste", "abcdef"), ("Paste", "abcdefabcdef"),
                           ("Select All", "abcdefabcdef"), ("Copy", "abcdefabcdef"),
                           ("Delete", ""), ("Paste", "abcdefabcdef"),
                           ("Select All", "abcdefabcdef"), ("Delete", "")):
            person.edits(item, by_mouse)
            expect(lambda: (item, by_mouse, person.text(field)), (item, by_mouse, text))
        click(Atspi.Table.get_accessible_at(person.table(), 0, 0))
        expect(person.selected_rows, [0])
        person.edits("Select All", by_mouse)
        expect(person.selected_rows, [0, 1])


def enters_and_exports_by_keys_alone(person):
    opens(person)
    expect(lambda: is_("FOCUSED", person.find("Entry: RA")), True)
    types_crab()
    expect(lambda: person.row(1), CRAB)
    person.tabs_to("Export...")
    press("space")
    person.accepts_dialog()
    expect(lambda: exported(person), [HEADINGS, ANDROMEDA, CRAB])


def finds_everything_again(person):
    opens(person)
    for panel, popup, row in (("Input Epoch", 0, "B1950.0"), ("Output Format", 0, "DDD:MM"),
                              ("Output Format", 2, "3"), ("List Export", 0, "Comma-separated"),
                              ("Output Epoch", 0, "Other")):
        person.chooses(panel, popup, row)
    for key, date, heading in ("Tab", "2010-06-15", "2010.5"), ("ctrl+a", "0987-02-03", "987.1"):
        press(key)
        write(date)
        press("Return")
        expect(lambda: person.headings()[2], f"Output RA ({heading})")
    adds_crab(person)
    expect(person.row_count, 2)
    person.moves_window(60, 90, 600)

    def seen():
        return [place(person.window), person.headings(), person.row(1), sorted(
            node.get_name() for node in below(person.window)
            if node.get_role_name() in ("combo box", "label", "check box"))]

    before = seen()
    person.ends()
    person.starts(2)
    expect(seen, before)


def writes_a_decimal_comma(person):
    """The locale need not be installed."""
    opens(person, [("12:30:00,00", "-30:00:00,0")], "de_DE.UTF-8", toEpochA="",
          inFormat="HH:MM:SS\t+DD:MM:SS\tY\t2\t1", outFormat="HHhMMm\t+DD:MM\tY\t2\t2")
    person.find("Localised decimal point (,)")
    expect(person.headings, ["Input RA (2000,0)", "Input Dec (2000,0)", "Output RA (2000,0)",
                             "Output Dec (2000,0)"])
    person.clicks("Entry: RA")
    types_crab(",")
    expect(lambda: person.row(1), ["05:34:31,97", "+22:00:52,1", "05h34,53m", "+22:00,87"])
    person.ends()
    assert person.stored_rows() == [("12:30:00,00", "-30:00:00,0"), ("05:34:31,97", "+22:00:52,1")]


def works_by_assistive_technology(person):
    opens(person)
    for name, text in (("Entry: RA", CRAB[0]), ("Entry: Dec", CRAB[1])):
        person.clicks(name)
        Atspi.EditableText.set_text_contents(person.find(name), text)
        expect(lambda: person.text(name), text)
    press("Return")
    expect(lambda: person.row(1), CRAB)
    field = person.find("Entry: RA")
    expect(lambda: "HH:MM:SS" in field.get_description(), True)
    click(field)
    write("25")
    expect(lambda: re.findall("HH:MM:SS|Hours must", field.get_description()),
           ["HH:MM:SS", "Hours must"])
    press("ctrl+a")
    types_crab()
    expect(person.selected_rows, [2])
    expect(person.heard_focus, field)


def ends_at_two_signals_with_everything_saved(person):
    opens(person, STORED * 100_000)
    adds_crab(person)
    expect(person.row_count, 100_001)
    while person.process.poll() is None:
        person.process.terminate()
        time.sleep(0.02)
    assert person.stored_rows()[99_999:] == STORED_AND_CRAB


def ends_with_a_dialog_open_and_starts_a_second_time(person):
    opens(person)
    adds_crab(person)
    expect(person.row_count, 2)
    person.clicks("Export...")
    person.sees_dialog()
    person.process.terminate()
    person.has_ended()
    assert person.stored_rows() == STORED_AND_CRAB
    person.starts(2)
    before = person.settings_file.read_bytes()
    person.minimises_window()
    assert person.launches().wait(PATIENCE) == 0
    wait_for("the window in front", lambda: person.front("frame"))
    assert person.settings_file.read_bytes() == before
    person.ends()
    assert person.stored_rows() == STORED_AND_CRAB


def starts_long_import(person):
    with (person.home / "long.tsv").open("wb") as file:
        for _ in range(LONG // 10_000):
            file.write(b"5:34\t+22:0\n" * 10_000)
    opens(person)
    person.clicks("Import...")
    person.sees_dialog()
    write("long.tsv")
    press("Return")
    wait_for("the import", lambda: person.has_open("long.tsv"))


def stops_imports_and_ends_one_by_a_signal(person):
    for stop in (click, lambda _: press("Escape")):
        starts_long_import(person)
        stop(person.find("Stop"))
        wait_for("the end of the work", lambda: not person.has_open("long.tsv"))
        expect(lambda: 1 < person.row_count() < LONG, True)
        person.clicks("Clear")
        person.ends()
    starts_long_import(person)
    person.process.terminate()
    person.has_ended()
    text = person.settings_file.read_text(encoding="utf-8")
    rows = int(re.search(r"<key>nContents</key>\s*<integer>(\d+)<", text)[1])
    assert 1 < rows < LONG, rows
    assert f"<key>Contents.Dec.{rows - 1}</key>" in text and text.endswith("</xmldict>\n")


SCENARIOS = [edits_by_keys_as_by_mouse, enters_and_exports_by_keys_alone, finds_everything_again,
             writes_a_decimal_comma, works_by_assistive_technology,
             ends_at_two_signals_with_everything_saved,
             ends_with_a_dialog_open_and_starts_a_second_time,
             stops_imports_and_ends_one_by_a_signal]
