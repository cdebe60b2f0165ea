"""Runs the sample host as a script would: files of every encoding through the control, exit statuses, pictures.

    automation_test.py [EMULATOR] SCRIVPAD.EXE

Every run happens in a folder of its own with relative names, so that no path has to be translated.
"""
import os
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib

PROGRAM = []  # the emulator, if any, and the host; set by the command line
BOM8, BOM16LE, BOM16BE = b'\xef\xbb\xbf', b'\xff\xfe', b'\xfe\xff'
DEFAULT, ANSI, UTF8, OEM, UTF16LE, UTF16BE = range(6)


class Host(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def run_host(self, *arguments):
        """Returns the exit status; what was said on the error stream stays in self.said."""
        # Not a pipe: what the emulator leaves running holds its end open, and reading it would wait for that.
        with tempfile.TemporaryFile() as said:
            result = subprocess.run([*PROGRAM, *map(str, arguments)], cwd=self.folder, timeout=60,
                                    stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=said,
                                    env={**os.environ, 'LC_ALL': 'C.UTF-8'})  # names are UTF-8
            said.seek(0)
            self.said = said.read().decode('utf-8', 'replace')
        return result.returncode

    def write(self, name, data):
        with open(os.path.join(self.folder, name), 'wb') as file:
            file.write(data)

    def read(self, name):
        with open(os.path.join(self.folder, name), 'rb') as file:
            return file.read()

    def exists(self, name):
        return os.path.exists(os.path.join(self.folder, name))

    def through_the_control(self, data, *options):
        """The bytes that a load of `data` and a save make of it."""
        self.write('in.txt', data)
        status = self.run_host(*options, '--save-as', 'out.txt', '--exit', 'in.txt')
        self.assertEqual(status, 0, self.said)
        return self.read('out.txt')

    def assert_fails(self, status, *arguments):
        self.assertEqual(self.run_host(*arguments), status, self.said)
        self.assertIn('scrivpad: ', self.said)


class SaveAs(Host):
    TEXT = 'one\n\ttwo /* */\n\nконец å'  # the mixed last line is for the Unicode encodings

    def check_kept(self, mark, codec, *options, text=TEXT):
        for line_end in '\n', '\r\n':
            data = mark + text.replace('\n', line_end).encode(codec)
            with self.subTest(line_end=line_end):
                self.assertEqual(self.through_the_control(data, *options), data)

    def test_utf8_keeps_its_bytes(self):
        self.check_kept(b'', 'utf-8')

    def test_utf8_with_a_mark_keeps_its_bytes(self):
        self.check_kept(BOM8, 'utf-8')

    def test_utf16_little_endian_keeps_its_bytes(self):
        self.check_kept(BOM16LE, 'utf-16-le')

    def test_utf16_big_endian_keeps_its_bytes(self):
        self.check_kept(BOM16BE, 'utf-16-be')

    def test_utf16_without_a_mark_keeps_its_bytes_when_it_is_asked_for(self):
        self.check_kept(b'', 'utf-16-le', '--encoding', UTF16LE)
        self.check_kept(b'', 'utf-16-be', '--encoding', UTF16BE)

    def test_ansi_keeps_its_bytes(self):
        self.check_kept(b'', 'latin-1', text='caf\xe9\n\xe0 la')

    def test_oem_keeps_its_bytes_when_it_is_asked_for(self):
        self.check_kept(b'', 'latin-1', '--encoding', OEM, text='\x82\xe1\n\xa4')

    def test_ascii_keeps_its_bytes_whatever_is_asked_for(self):
        for code in DEFAULT, ANSI, UTF8, OEM:
            self.check_kept(b'', 'ascii', '--encoding', code, text='int a;\n// b')

    def test_mixed_line_ends_stay_as_they_are(self):
        data = b'a\r\nb\nc\rd'
        self.assertEqual(self.through_the_control(data), data)

    def test_a_mark_overrides_what_is_asked_for(self):
        data = BOM16LE + 'a\nЖ'.encode('utf-16-le')
        self.assertEqual(self.through_the_control(data, '--encoding', ANSI), data)

    def test_a_last_line_break_is_lost(self):
        self.assertEqual(self.through_the_control(b'a\n'), b'a')
        self.assertEqual(self.through_the_control(b'a\r\n\r\n'), b'a\r\n')
        self.assertEqual(self.through_the_control(b'\n'), b'')

    def test_an_empty_file_gives_an_empty_file(self):
        self.assertEqual(self.through_the_control(b''), b'')

    def test_lines_of_more_than_512_characters_are_cut(self):
        self.assertEqual(self.through_the_control(b'x' * 512 + b'\ny'), b'x' * 512 + b'\ny')
        self.assertEqual(self.through_the_control(b'x' * 1025), b'x' * 512 + b'\n' + b'x' * 512 + b'\nx')

    def test_another_encoding_is_written_with_plain_line_feeds_and_its_usual_mark(self):
        text = 'ä\r\nб'
        plain = 'ä\nб'
        for code, expected in ((DEFAULT, text.encode('utf-8')), (UTF8, text.encode('utf-8')),
                               (UTF16LE, BOM16LE + plain.encode('utf-16-le')),
                               (UTF16BE, BOM16BE + plain.encode('utf-16-be'))):
            with self.subTest(code=code):
                saved = self.through_the_control(text.encode('utf-8'), '--save-encoding', code)
                self.assertEqual(saved, expected)

    def test_ascii_text_fits_every_encoding(self):
        for code, expected in ((ANSI, b'a\nb'), (OEM, b'a\nb'), (UTF16BE, BOM16BE + b'\0a\0\n\0b')):
            with self.subTest(code=code):
                self.assertEqual(self.through_the_control(b'a\nb', '--save-encoding', code), expected)

    def test_a_character_without_a_place_in_the_encoding_leaves_the_target_alone(self):
        self.write('in.txt', 'снег ☃'.encode('utf-8'))
        self.write('out.txt', b'before')
        for code in ANSI, OEM:
            self.assert_fails(1, '--save-as', 'out.txt', '--save-encoding', code, '--exit', 'in.txt')
            self.assertEqual(self.read('out.txt'), b'before')

    def test_a_name_of_cyrillic_letters_and_blanks(self):
        self.write('мой файл.ssl', 'ЕСЛИ'.encode('utf-8'))
        self.assertEqual(self.run_host('--save-as', 'новый файл.cpp', '--exit', 'мой файл.ssl'), 0, self.said)
        self.assertEqual(self.read('новый файл.cpp'), 'ЕСЛИ'.encode('utf-8'))

    def test_the_file_itself_can_be_the_target(self):
        self.write('in.txt', b'a\nb\n')
        self.assertEqual(self.run_host('--save-as', 'in.txt', '--exit', 'in.txt'), 0, self.said)
        self.assertEqual(self.read('in.txt'), b'a\nb')


class Failures(Host):
    def test_a_bad_command_line_gives_2_and_the_usage(self):
        for arguments in (('--nonsense',), ('--theme', '6'), ('--goto', '1'), ('a', 'b'),
                          ('--save-encoding', '1', 'a')):
            with self.subTest(arguments=arguments):
                self.assert_fails(2, *arguments)
                self.assertIn('--screenshot', self.said)

    def test_a_file_that_is_not_there(self):
        self.assert_fails(1, '--exit', 'missing.txt')
        self.assertIn('missing.txt', self.said)

    def test_a_folder_is_no_file(self):
        os.mkdir(os.path.join(self.folder, 'folder'))
        self.assert_fails(1, '--exit', 'folder')

    def test_a_file_that_is_no_text(self):
        for data in b'a\0b', BOM16LE + b'a', BOM16LE + b'a\0\0\0':
            with self.subTest(data=data):
                self.write('in.bin', data)
                self.assert_fails(1, '--save-as', 'out.txt', '--exit', 'in.bin')
                self.assertFalse(self.exists('out.txt'))

    def test_a_target_in_a_folder_that_is_not_there(self):
        self.write('in.txt', b'a')
        self.assert_fails(1, '--save-as', 'no/out.txt', '--exit', 'in.txt')
        self.assert_fails(1, '--screenshot', 'no/out.png', '--exit', 'in.txt')

    def test_a_failed_step_ends_the_program_without_exit_too(self):
        self.assert_fails(1, '--theme', '2', 'missing.txt')

    def test_a_place_that_the_text_has_and_one_that_it_has_not(self):
        self.write('in.txt', b'one\ntwo')
        for place in '1:1', '2:4':
            self.assertEqual(self.run_host('--goto', place, '--exit', 'in.txt'), 0, self.said)
        for place in '3:1', '2:5':
            self.assert_fails(1, '--goto', place, '--exit', 'in.txt')


def pixels_of(png):
    """Rows of (red, green, blue) of an 8-bit true-colour PNG without interlacing."""
    if png[:8] != b'\x89PNG\r\n\x1a\n':
        raise ValueError('no PNG')
    at, packed, header = 8, b'', None
    while at < len(png):
        length, kind = struct.unpack('>I4s', png[at:at + 8])
        body = png[at + 8:at + 8 + length]
        if kind == b'IHDR':
            header = struct.unpack('>IIBBBBB', body)
        elif kind == b'IDAT':
            packed += body
        at += length + 12
    width, height, depth, colour, _, _, interlace = header
    if (depth, colour, interlace) != (8, 2, 0):
        raise ValueError('another kind of PNG')
    data, stride, before, rows = zlib.decompress(packed), width * 3, bytearray(width * 3), []
    for y in range(height):
        kind, row = data[y * (stride + 1)], bytearray(data[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            left, up = row[i - 3] if i >= 3 else 0, before[i]
            corner = before[i - 3] if i >= 3 else 0
            nearest = min((abs(up - corner), 0, left), (abs(left - corner), 1, up),
                          (abs(left + up - 2 * corner), 2, corner))
            row[i] = (row[i] + (0, left, up, (left + up) // 2, nearest[2])[kind]) & 255
        rows.append([tuple(row[i:i + 3]) for i in range(0, stride, 3)])
        before = row
    return rows


class Screenshots(Host):
    SOURCE = 'int x = 0x10; // Пример\nreturn "a\\n";\n' * 8

    def shares(self, *options):
        """How large a part of the picture each colour takes."""
        self.write('in.cpp', self.SOURCE.encode('utf-8'))
        self.assertEqual(self.run_host(*options, '--screenshot', 'out.png', '--exit', 'in.cpp'), 0, self.said)
        rows = pixels_of(self.read('out.png'))
        self.assertGreaterEqual(len(rows), 400)
        self.assertGreaterEqual(len(rows[0]), 600)
        count = {}
        for row in rows:
            for pixel in row:
                count[pixel] = count.get(pixel, 0) + 1
        return {pixel: n / (len(rows) * len(rows[0])) for pixel, n in count.items()}

    def test_show_the_theme_and_the_classes_of_the_file(self):
        white, ocean = self.shares('--theme', 1), self.shares('--theme', 3)
        self.assertGreater(white.get((255, 255, 255), 0), 0.5)
        self.assertGreater(ocean.get((0, 0, 128), 0), 0.5)
        for colour in (0, 0, 255), (255, 0, 0), (128, 128, 128), (0, 128, 128), (0, 128, 0):
            self.assertIn(colour, white)  # keyword, number, comment, string, identifier

    def test_are_the_same_each_time(self):
        self.assertEqual(self.shares('--goto', '3:5'), self.shares('--goto', '3:5'))


if __name__ == '__main__':
    PROGRAM = [argument for argument in sys.argv[1:] if argument]
    unittest.main(argv=sys.argv[:1], verbosity=1)
