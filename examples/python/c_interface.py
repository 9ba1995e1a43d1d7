#!/usr/bin/env python3
"""Prints what is wrong with each input, through the C interface and with nothing but ctypes:

    c_interface.py libkelp_bdf_inp.so examples/faulty.inp
"""

import ctypes
import sys
from ctypes import POINTER, byref, c_char, c_char_p, c_int32, c_size_t, c_void_p


class Error(ctypes.Structure):
    _fields_ = [("status", c_int32), ("text", c_char * 508)]


class String(ctypes.Structure):
    _fields_ = [("data", c_void_p), ("size", c_size_t)]

    def __str__(self):
        return ctypes.string_at(self.data, self.size).decode("utf-8", "replace")


def load(path):
    """The library, with the types of the functions that are called below."""
    library = ctypes.CDLL(path)
    handle, out = c_void_p, POINTER(c_void_p)
    types = {
        "kelp_bdf_input_read": [c_char_p, handle, out, POINTER(Error)],
        "kelp_bdf_input_free": [handle],
        "kelp_bdf_check": [handle, c_void_p, out, POINTER(Error)],
        "kelp_bdf_findings_count": [handle, POINTER(c_size_t)],
        "kelp_bdf_findings_free": [handle],
        "kelp_bdf_finding_concise": [handle, c_size_t, c_char_p, out, POINTER(Error)],
        "kelp_bdf_texts_get": [handle, c_size_t, POINTER(String)],
        "kelp_bdf_texts_free": [handle],
    }
    for name, arguments in types.items():
        function = getattr(library, name)
        function.argtypes = arguments
        function.restype = c_int32
    library.kelp_bdf_interface_version.restype = ctypes.c_uint32
    return library


def print_findings(library, file):
    error, given, findings = Error(), c_void_p(), c_void_p()
    try:
        if library.kelp_bdf_input_read(file.encode(), None, byref(given), byref(error)):
            raise OSError(error.text.decode())
        if library.kelp_bdf_check(given, None, byref(findings), byref(error)):
            raise RuntimeError(error.text.decode())
        count = c_size_t()
        library.kelp_bdf_findings_count(findings, byref(count))
        for index in range(count.value):
            lines, line = c_void_p(), String()
            library.kelp_bdf_finding_concise(findings, index, file.encode(), byref(lines), None)
            library.kelp_bdf_texts_get(lines, 0, byref(line))
            print(line)
            library.kelp_bdf_texts_free(lines)
    finally:
        library.kelp_bdf_findings_free(findings)
        library.kelp_bdf_input_free(given)


def main():
    library = load(sys.argv[1])
    if library.kelp_bdf_interface_version() >> 16 != 1:
        sys.exit("this is written for version 1 of the interface")
    for file in sys.argv[2:]:
        print_findings(library, file)


main()
