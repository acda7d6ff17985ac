"""Checks the CSV files of Fyla filings through the QZCsvConvXml library.

Each function runs one operation of the library and returns a Result:

    import qzcsvconv
    r = qzcsvconv.check_detail2("HOI010_4.0.csv", "4.0")
    if r.ok and r.conformity != 0: ...
    for e in r.errors: print(e.line, e.column, e.code)

Paths may be str, bytes or path objects; texts are str. None passes a
missing argument, which the library answers with "E_FAIL" and an error entry.
The library runs one operation at a time per process: do not call these
functions from two threads at once.
"""

import ctypes
import os
from dataclasses import dataclass
from typing import Tuple

from ._library import LIBRARY

__all__ = ["ErrorEntry", "FileResult", "Result", "parse_errors", "check_detail", "check_detail2",
           "check_appended", "check_statements", "write", "report"]


@dataclass(frozen=True)
class ErrorEntry:
    """One error entry: "0012-00003-HQZ9300E" is line 12, column 3. Line 9999
    marks an argument (column = its number), line 0 with column 0 the whole
    file or run."""
    line: int
    column: int
    code: str


@dataclass(frozen=True)
class FileResult:
    """The record of one file of a financial statements check."""
    name: str
    check_result: int  # 0 complete, 1 incomplete, 2 inconsistent, 3 format error
    xbrl_type: str
    style_version: str
    corporate_name: str
    fiscal_year_from: str
    fiscal_year_to: str
    generic_csv: str
    error_info: str
    errors: Tuple[ErrorEntry, ...]


@dataclass(frozen=True)
class Result:
    """The answer of one operation."""
    code: str  # "S_OK" or "E_FAIL"
    error_info: str  # the entries as the library joins them
    errors: Tuple[ErrorEntry, ...]
    conformity: int  # 0 cannot be converted, 1 clean, 2 convertible with errors
    files: Tuple[FileResult, ...]  # financial statements check only
    report: str  # report XML document, report() only

    @property
    def ok(self) -> bool:
        return self.code == "S_OK"


def parse_errors(error_info: str) -> Tuple[ErrorEntry, ...]:
    """The entries of an error text, in its order; a piece that is not an
    entry is skipped."""
    entries = []
    for piece in error_info.split(","):
        line, _, rest = piece.partition("-")
        column, _, code = rest.partition("-")
        if line.isdigit() and column.isdigit() and code:
            entries.append(ErrorEntry(int(line), int(column), code))
    return tuple(entries)


_lib = ctypes.CDLL(os.path.join(os.path.dirname(os.path.abspath(__file__)), LIBRARY))
_OPERATIONS = ("check_detail", "check_detail2", "check_appended", "check_statements", "write", "report")
_FILE_FIELDS = ("name", "check_result", "xbrl_type", "style_version", "corporate_name", "fiscal_year_from",
                "fiscal_year_to", "generic_csv", "error_info")
for _name in _OPERATIONS:
    getattr(_lib, "qzc_" + _name).argtypes = [ctypes.c_char_p, ctypes.c_char_p]
    getattr(_lib, "qzc_" + _name).restype = ctypes.c_void_p
for _name in ("code", "error_info", "report"):
    getattr(_lib, "qzc_result_" + _name).argtypes = [ctypes.c_void_p]
    getattr(_lib, "qzc_result_" + _name).restype = ctypes.c_char_p
for _name in ("conformity", "file_count"):
    getattr(_lib, "qzc_result_" + _name).argtypes = [ctypes.c_void_p]
    getattr(_lib, "qzc_result_" + _name).restype = ctypes.c_int64
for _name in _FILE_FIELDS:
    getattr(_lib, "qzc_result_file_" + _name).argtypes = [ctypes.c_void_p, ctypes.c_int64]
    getattr(_lib, "qzc_result_file_" + _name).restype = ctypes.c_char_p
_lib.qzc_result_free.argtypes = [ctypes.c_void_p]
_lib.qzc_result_free.restype = None


def _argument(value):
    # Text the library cannot read as UTF-8 (lone surrogates, undecodable
    # bytes of a file name) reaches it as such and is refused there.
    if value is None or isinstance(value, bytes):
        return value
    return os.fspath(value).encode("utf-8", "surrogatepass")


def _text(value: bytes) -> str:
    return value.decode("utf-8", "replace")


def _file(handle, index: int) -> FileResult:
    fields = {name: _text(getattr(_lib, "qzc_result_file_" + name)(handle, index)) for name in _FILE_FIELDS}
    fields["check_result"] = int(fields["check_result"])
    return FileResult(errors=parse_errors(fields["error_info"]), **fields)


def _run(name: str, *arguments) -> Result:
    handle = getattr(_lib, "qzc_" + name)(*map(_argument, arguments))
    if not handle:
        raise MemoryError("no memory left for the result of " + name)
    try:
        error_info = _text(_lib.qzc_result_error_info(handle))
        return Result(code=_text(_lib.qzc_result_code(handle)), error_info=error_info,
                      errors=parse_errors(error_info), conformity=_lib.qzc_result_conformity(handle),
                      files=tuple(_file(handle, i) for i in range(_lib.qzc_result_file_count(handle))),
                      report=_text(_lib.qzc_result_report(handle)))
    finally:
        _lib.qzc_result_free(handle)


def check_detail(csv_path, style_version: str) -> Result:
    """Checks a detail-statement CSV file (the conformity stays 0)."""
    return _run("check_detail", csv_path, style_version)


def check_detail2(csv_path, style_version: str) -> Result:
    """Checks a detail-statement CSV file and tells whether it can be converted."""
    return _run("check_detail2", csv_path, style_version)


def check_appended(csv_path, style_version: str) -> Result:
    """Checks an appended-table CSV file and tells whether it can be converted."""
    return _run("check_appended", csv_path, style_version)


def check_statements(csv_folder, style_version: str) -> Result:
    """Checks a folder of financial statements CSV files; one record per file."""
    return _run("check_statements", csv_folder, style_version)


def write(output_path, text: str) -> Result:
    """Writes the text as the Shift_JIS file output_path, whole or not at all."""
    return _run("write", output_path, text)


def report(csv_path, style_version: str) -> Result:
    """Checks a detail statement or appended table and, when it can be
    converted, gives its report XML document."""
    return _run("report", csv_path, style_version)
