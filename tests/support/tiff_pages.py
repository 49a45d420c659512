#!/ usr / bin / python3
"""Makes TIFF files of many pages with other programs, and tells what stands in one.

    tiff_pages.py kinds              the kinds of files, a line each
    tiff_pages.py make KIND FILE     a file of such a kind
    tiff_pages.py make-all FOLDER    one of each, named KIND.tif
    tiff_pages.py tell FILE          a line for each page: all tags and digests of what is stored, but no places
    tiff_pages.py pixels FILE        a line for each page: how Pillow sees it

The walk over the file is an own one, so that it can judge those of the program and of libtiff.
"""
import hashlib
import json
import os
import struct
import subprocess
import sys
import tempfile

TYPES = {1: "B", 2: "c", 3: "H", 4: "I", 5: "II", 6: "b", 7: "c", 8: "h", 9: "i", 10: "ii", 11: "f", 12: "d", 13: "I",
         16: "Q", 17: "q", 18: "Q"}
DATA = {273: 279, 324: 325, 513: 514}
BELOW = (330, 34665, 34853, 40965)


class Tiff:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        self.order = {b"II": "<", b"MM": ">"}[self.data[:2]]
        self.big = self.number(2, "H") == 43
        self.width = "Q" if self.big else "I"
        self.first = self.number(8 if self.big else 4, self.width)

    def number(self, place, code):
        return struct.unpack_from(self.order + code, self.data, place)[0]

    def directory(self, place):
        """The tags with their types and values, and the place of the next directory."""
        step, room, start = (20, 8, 8) if self.big else (12, 4, 2)
        count = self.number(place, "Q" if self.big else "H")
        tags = {}
        for at in range(place + start, place + start + count * step, step):
            tag, kind = struct.unpack_from(self.order + "HH", self.data, at)
            amount = self.number(at + 4, self.width)
            code = TYPES[kind] * amount
            size = struct.calcsize(self.order + code)
            value = at + step - room
            if size > room:
                value = self.number(value, self.width)
            tags[tag] = (kind, struct.unpack_from(self.order + code, self.data, value))
        return tags, self.number(place + start + count * step, self.width)

    def pages(self):
        place = self.first
        while place:
            tags, following = self.directory(place)
            yield tags
            place = following

    def told(self, tags):
        page = {}
        for tag, (kind, values) in tags.items():
            if tag in DATA:
                parts = zip(values, tags[DATA[tag]][1])
                page[tag] = [hashlib.sha1(self.data[at:at + size]).hexdigest() for at, size in parts]
            elif tag in BELOW:
                page[tag] = [self.told(self.directory(at)[0]) for at in values]
            else:
                page[tag] = (kind, [value.hex() if isinstance(value, bytes) else value for value in values])
        return page


def page(number, mode, size):
    """A page that tells its number by its pattern."""
    from PIL import Image  # takes long, and is not needed to tell

    image = Image.new("RGB", size)
    image.putdata([((x * 7 + number * 31) % 256, (y * 5 + x * number) % 256, (x * y // 3 + number) % 256)
                   for y in range(size[1]) for x in range(size[0])])
    return image.convert(mode)


def save(path, pages, **options):
    pages[0].save(path, format="TIFF", save_all=True, append_images=pages[1:], dpi=(300, 300), **options)


def copied(path, pages, *options):
    with tempfile.TemporaryDirectory() as directory:
        plain = os.path.join(directory, "plain.tif")
        save(plain, pages, tiffinfo={
    262 : 0} if pages[0].mode == "1" else {})
        subprocess.run(["tiffcp", *options, plain, path], check=True)


def mixed(path):
    """Sizes and depths as they come, joined by ImageMagick."""
    modes = [("1", (61, 40)), ("L", (33, 50)), ("P", (40, 20)), ("RGB", (70, 31)), ("RGBA", (20, 20)), ("CMYK", (9, 9))]
    with tempfile.TemporaryDirectory() as directory:
        names = []
        for number, (mode, size) in enumerate(modes):
            names.append(os.path.join(directory, f"{number}.tif"))
            page(number, mode, size).save(names[-1])
        deep = os.path.join(directory, "deep.tif")
        page(9, "I", (25, 16)).convert("I;16").save(deep)
        subprocess.run(["convert-im6.q16", *names, deep, "-compress", "LZW", path], check=True)


class Builder:
    """Puts a file together by hand, with what no program at hand writes."""

    def __init__(self, order="<"):
        self.order = order
        self.data = bytearray((b"II" if order == "<" else b"MM") + struct.pack(order + "HI", 42, 0))
        self.pointer = 4

    def put(self, data):
        self.data += b"\0" * (len(self.data) % 2)
        place = len(self.data)
        self.data += data
        return place

    def directory(self, tags):
        fields = b""
        for tag, (kind, values) in sorted(tags.items()):
            amount = len(values) // len(TYPES[kind])
            packed = values if isinstance(values, bytes) else struct.pack(self.order + TYPES[kind] * amount, *values)
            if len(packed) > 4:
                packed = struct.pack(self.order + "I", self.put(packed))
            fields += struct.pack(self.order + "HHI", tag, kind, amount) + packed.ljust(4, b"\0")
        return self.put(struct.pack(self.order + "H", len(tags)) + fields + b"\0\0\0\0")

    def picture(self, number, size, **more):
        raw = page(number, "L", size).tobytes()
        rows = 16
        strips = [raw[at:at + rows * size[0]] for at in range(0, len(raw), rows * size[0])]
        tags = {256: (3, [size[0]]), 257: (3, [size[1]]), 258: (3, [8]), 259: (3, [1]), 262: (3, [1]),
                273: (4, [self.put(strip) for strip in strips]), 277: (3, [1]), 278: (3, [rows]),
                279: (4, [len(strip) for strip in strips]), 282: (5, [300, 1]), 283: (5, [300, 1]), 296: (3, [2])}
        tags.update({int(tag[1:]): value for tag, value in more.items()})
        return self.directory(tags)

    def chain(self, place):
        struct.pack_into(self.order + "I", self.data, self.pointer, place)
        self.pointer = place + 2 + 12 * struct.unpack_from(self.order + "H", self.data, place)[0]

    def thumbnail(self, number):
        return self.picture(number, (20, 16), t254=(4, [1]))


def below(path, order="<"):
    """Three pages with thumbnails, EXIF, GPS, words and tags that nobody knows."""
    made = Builder(order)
    for number in range(3):
        gps = made.directory({0: (1, [2, 3, 0, 0]), 2: (5, [52, 1, 31, 1, number, 1])})
        exif = made.directory({33434: (5, [1, 60 + number]), 37510: (7, b"ASCII\0\0\0remark %d" % number)})
        made.chain(made.picture(
            number, (100, 80), t254=(4, [2]), t269=(2, b"document %d\0" % number), t270=(2, b"image %d\0" % number),
            t274=(3, [6]), t297=(3, [number, 3]), t305=(2, b"scanner\0"), t306=(2, b"2026:01:0%d 10:00:00\0" % (number + 1)),
            t330=(13, [made.thumbnail(40 + number), made.thumbnail(50 + number)]), t34665=(4, [exif]),
            t34853=(4, [gps]), t65000=(12, [0.5, number]), t65001=(7, b"own words %d" % number), t65002=(9, [-number])))
    with open(path, "wb") as file:
        file.write(made.data)


def words(path):
    """Two pages, the first with an own raw picture below, a resolution that has no unit, and words about it."""
    made = Builder()
    raw = made.picture(7, (64, 48), t254=(4, [0]))
    made.chain(made.picture(1, (100, 80), t254=(4, [1]), t270=(2, b"first\0"), t296=(3, [1]),
                            t330=(4, [made.thumbnail(2), raw])))
    made.chain(made.picture(3, (100, 80)))
    with open(path, "wb") as file:
        file.write(made.data)


def many(mode, count, size=(96, 64)):
    return [page(number, mode, size) for number in range(count)]


KINDS = {
    "fax": lambda path: copied(path, many("1", 20), "-c", "g4"),
    "fax of Pillow": lambda path: save(path, many("1", 20), compression="group4", tiffinfo={262: 0}),
    "colour LZW": lambda path: copied(path, many("RGB", 20), "-c", "lzw:2"),
    "grey JPEG": lambda path: copied(path, many("L", 5), "-c", "jpeg"),
    "colour JPEG": lambda path: copied(path, many("RGB", 3), "-c", "jpeg:r", "-r", "16"),
    "mixed": mixed,
    "tiled": lambda path: copied(path, many("RGB", 4), "-t", "-w", "32", "-l", "16", "-c", "zip"),
    "separate planes": lambda path: copied(path, many("RGB", 3), "-p", "separate", "-r", "10", "-c", "packbits"),
    "big-endian": lambda path: copied(path, many("RGB", 5), "-B", "-r", "7"),
    "BigTIFF": lambda path: copied(path, many("RGB", 5), "-8", "-r", "7", "-c", "lzw"),
    "BigTIFF, big-endian": lambda path: copied(path, many("L", 3), "-8", "-B", "-t", "-w", "16", "-l", "16"),
    "directories below": below,
    "directories below, big-endian": lambda path: below(path, ">"),
    "words": words,
    "two pages": lambda path: copied(path, many("RGB", 2), "-c", "lzw"),
    "one page": lambda path: save(path, many("RGB", 1)),
}


def main(command, *arguments):
    if command == "kinds":
        print("\n".join(KINDS))
    elif command == "make":
        KINDS[arguments[0]](arguments[1])
    elif command == "make-all":
        for name, make in KINDS.items():
            make(os.path.join(arguments[0], name + ".tif"))
    elif command == "tell":
        tiff = Tiff(arguments[0])
        print(json.dumps({"order": tiff.order, "big": tiff.big}))
        for tags in tiff.pages():
            print(json.dumps(tiff.told(tags), sort_keys=True))
    elif command == "pixels":
        from PIL import Image, ImageSequence

        for image in ImageSequence.Iterator(Image.open(arguments[0])):
            print(image.mode, image.size, hashlib.sha1(image.tobytes()).hexdigest())


if __name__ == "__main__":
    main(*sys.argv[1:])
