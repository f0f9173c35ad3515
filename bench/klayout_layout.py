"""Run by KLayout in batch mode: what it takes for the content of a flat file.

Variables, given with -rd:
  work     "write", "read" or "memory"
  flat     the flat file with the content (work "write")
  layout   where the layout files are, without their suffix
  results  the file for the results: lines of a name and a number, one for each repetition
  repetitions
  copies   how often the layout is read in one repetition
"""

import os
import struct
import time

import pya

LAYERS = 8
POINTS_OF_OCTAGON = 8


def draw(path):
    layout = pya.Layout()
    layout.dbu = 0.001
    cell = layout.create_cell("TOP")
    with open(path, "rb") as file:
        content = file.read()
    offset = LAYERS * 16
    for number in range(LAYERS):
        rectangles, octagons = struct.unpack_from("<QQ", content, number * 16)
        shapes = cell.shapes(layout.layer(number + 1, 0))
        for box in struct.iter_unpack("<4i", content[offset:offset + rectangles * 16]):
            shapes.insert(pya.Box(*box))
        offset += rectangles * 16
        size = POINTS_OF_OCTAGON * 8
        for numbers in struct.iter_unpack("<16i", content[offset:offset + octagons * size]):
            points = [pya.Point(x, y) for x, y in zip(numbers[::2], numbers[1::2])]
            shapes.insert(pya.Polygon(points))
        offset += octagons * size
    return layout


def options(file_format, cblocks=False):
    result = pya.SaveLayoutOptions()
    result.format = file_format
    result.oasis_compression_level = 0
    result.oasis_write_cblocks = cblocks
    return result


def resident_bytes():
    with open("/proc/self/statm") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def seconds(action):
    cpu = os.environ.get("OVALIS_BENCH_CLOCK") == "cpu"
    now = time.process_time if cpu else time.perf_counter
    start = now()
    action()
    return now() - start


def fresh(path):
    if os.path.exists(path):
        os.remove(path)
    return path


def measure_writes(report):
    drawn = draw(flat)
    variants = {
        "gds2": (".gds", options("GDS2")),
        "oasis": (".oas", options("OASIS")),
        "oasis_blocks": (".blocks.oas", options("OASIS", cblocks=True)),
    }
    for _ in range(int(repetitions)):
        for name, (suffix, how) in variants.items():
            path = fresh(layout + suffix)
            report("write_" + name, seconds(lambda: drawn.write(path, how)))
    for name, (suffix, _) in variants.items():
        report("size_" + name, os.path.getsize(layout + suffix))


def measure_reads(report):
    def read_once():
        read = pya.Layout()
        taken = seconds(lambda: read.read(layout + ".gds"))
        read._destroy()
        return taken

    for _ in range(int(repetitions)):
        report("read_gds2", sum(read_once() for _ in range(int(copies))))


def measure_memory(report):
    read = pya.Layout()
    before = resident_bytes()
    read.read(layout + ".gds")
    report("memory_gds2", resident_bytes() - before)


with open(results, "w") as output:
    works = {"write": measure_writes, "read": measure_reads, "memory": measure_memory}
    works[work](lambda name, number: output.write(f"{name} {number}\n"))
