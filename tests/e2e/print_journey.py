"""Printing where there is no printer: the program says so, offers a PDF file, and that file has
pages with ink on them, all cards included."""

import subprocess

from tests.support.desktop import Picture
from tests.support.journey import TITLE, expect, expect_equal, run, session, settings_of, stack_of

CARDS = [(f"front {number}", f"back {number}") for number in range(1, 121)]
STACK = stack_of("General", "Several pages", CARDS)


def pages_of(pdf):
    shots = subprocess.run(["pdftoppm", "-r", "40", str(pdf), str(pdf.with_suffix(""))], check=True,
                           capture_output=True)
    expect_equal(shots.stderr, b"", "complaints about the file")
    return [Picture(path.read_bytes()) for path in sorted(pdf.parent.glob("*.ppm"))]


def share_of_ink(page):
    dark = sum(value < 128 for value in page.pixels[::3])
    return dark / (page.width * page.height)


def no_printer(program, pictures):
    with session(program, pictures) as journey:
        desktop = journey.desktop
        # A private print server that is not there, whatever printers this machine has.
        desktop.environment["CUPS_SERVER"] = str(desktop.home / "no-cups.sock")
        journey.write_settings(settings_of("General"))
        path = journey.cards / "many.QBC"
        path.write_bytes(STACK)
        journey.start(path)
        journey.menu("alt+f", "p")
        name = "many".ljust(256)
        window = desktop.wait_until(
            lambda: next((found for found in journey.reader.windows()
                          if found.name.strip() == f"{TITLE} - many"), None), "the print window")
        expect_equal(window.name, f"{TITLE} - {name}", "the caption")
        desktop.picture("print")
        for answer in ("Escape", "Return"):
            desktop.click_thing(window.one("push button", "OK"))
            journey.answer_box("There is no printer.  Choose a PDF file to print to.", "Return",
                               picture="no-printer")
            journey.window("Print to a PDF File")
            desktop.picture("choose-file")
            if answer == "Return":  # under its proposed name, many.pdf
                desktop.key("Return")
            else:
                desktop.key("Escape")
                desktop.wait_until_gone("Print to a PDF File")
        pdf = desktop.home / "Documents" / "many.pdf"
        desktop.wait_until(lambda: pdf.exists(), "the PDF file")
        desktop.wait_until(lambda: not window_is_open(journey), "the print window to close")

        pages = pages_of(pdf)
        expect(len(pages) > 1, f"only {len(pages)} page")
        for number, page in enumerate(pages, 1):
            expect(share_of_ink(page) > 0.001, f"page {number} is blank")
        words = subprocess.run(["pdftotext", "-layout", str(pdf), "-"], check=True,
                               capture_output=True, text=True).stdout.split()
        expect_equal(words, ["many"] + [word for front, back in CARDS
                                        for word in (front + " " + back).split()], "the words")
        (desktop.pictures / "many.pdf").write_bytes(pdf.read_bytes())
        journey.quit()
        journey.expect_file(path, STACK)


def window_is_open(journey):
    return any(window.name.startswith(f"{TITLE} - ") for window in journey.reader.windows())


if __name__ == "__main__":
    run(no_printer)
