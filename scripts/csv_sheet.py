"""What check-csv reads back: a CSV file as Python's csv module reads it, once its bytes are
checked (byte-order mark, CR LF), and the spreadsheet LibreOffice made of it, cell by cell."""
import csv
import re
import zipfile


def rows_of(path):
    data = open(path, "rb").read()
    assert data.startswith(b"\xef\xbb\xbf"), f"{path}: no byte-order mark"
    assert b"\n" not in data.replace(b"\r\n", b""), f"{path}: a line not ended by CR LF"
    with open(path, encoding="utf-8-sig", newline="") as f:
        return list(csv.reader(f, delimiter=";"))


def cells_of(xlsx):
    """Each cell of the first sheet by column letter and row number: text or a float."""
    with zipfile.ZipFile(xlsx) as z:
        sheet = z.read("xl/worksheets/sheet1.xml").decode()
        shared = re.findall(r"<si>(?:<t[^>]*>)?(.*?)(?:</t>)?</si>",
                            z.read("xl/sharedStrings.xml").decode())
    cells = {}
    for ref, attrs, body in re.findall(r'<c r="([A-Z]+\d+)"([^>]*?)(?:/>|>(.*?)</c>)', sheet):
        value = re.search(r"<v>(.*?)</v>", body or "")
        value = value.group(1) if value else ""
        cells[ref] = shared[int(value)] if 't="s"' in attrs else float(value) if value else None
    return cells


def check_number(cells, ref, text):
    """The spreadsheet read the field, decimal comma and all, as that number."""
    got = cells.get(ref)
    assert isinstance(got, float) and abs(got - float(text.replace(",", "."))) < 1e-9, \
        (ref, text, got)


def check_text(cells, ref, text):
    got = cells.get(ref)
    assert str(got if not isinstance(got, float) else int(got)) == text, (ref, text, got)
