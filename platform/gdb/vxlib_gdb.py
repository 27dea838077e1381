"""Shows texts of the library in GDB as texts: (gdb) source platform/gdb/vxlib_gdb.py

A vx::String is 12 code units. The last one is the length of a text that stands in the value itself, or 0xFFFF for a
text in a block: then the value holds the block's address, the address of the first code unit and the length.
"""
import struct

import gdb
import gdb.printing

INLINE_CAPACITY = 11
IN_BLOCK = 0xFFFF


class StringPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        field = self.value['FUnits']
        units = [int(field[i]) for i in range(INLINE_CAPACITY + 1)]
        length = units[INLINE_CAPACITY]
        if length == IN_BLOCK:
            _, data, length = struct.unpack_from('<QQI', struct.pack('<12H', *units))
        elif length > INLINE_CAPACITY:
            return '<no text, tag %d>' % length
        elif field.address is None:  # what a function returned is not in memory
            return struct.pack('<%dH' % length, *units[:length]).decode('utf-16-le', 'backslashreplace')
        else:
            data = int(field.address)
        pointer = gdb.Value(data).cast(gdb.lookup_type('char16_t').pointer())
        return pointer.lazy_string(length=length)

    def display_hint(self):
        return 'string'


def make_printer():
    printer = gdb.printing.RegexpCollectionPrettyPrinter('vxlib')
    printer.add_printer('String', '^vx::String$', StringPrinter)
    return printer


gdb.printing.register_pretty_printer(gdb.current_objfile(), make_printer(), replace=True)
