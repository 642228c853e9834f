"""Small trees with one fault each, and what tools/check_layers.py must say of them."""
import importlib.util
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "tools" / "check_layers.py"
spec = importlib.util.spec_from_file_location("check_layers", SCRIPT)
check_layers = importlib.util.module_from_spec(spec)
spec.loader.exec_module(check_layers)

GUI, CORE, DATA = "varnel_gui", "varnel_core", "varnel_data"

# name: (files as path -> text, library lists as path -> library, part of
# the expected fault or None for no fault)
TREES = {
    "downwards": ({"app/a.cpp": '#include "data/d.h"', "data/d.h": ""}, {"app/a.cpp": GUI}, None),
    "upwards": ({"data/d.cpp": '#include "app/a.h"', "app/a.h": ""}, {"data/d.cpp": DATA},
                "data may not include app/a.h"),
    "interface allowed":
        ({"journal/j.h": '#include "link/recordinglog.h"', "link/recordinglog.h": ""}, {}, None),
    "beside the interface": ({"journal/j.h": '#include "link/reader.h"', "link/reader.h": ""}, {},
                             "journal may not include link/reader.h"),
    "circle through sources": (
        {"graph/a.h": "", "graph/a.cpp": '#include "graph/b.h"', "graph/b.h": "",
         "graph/b_unix.cpp": '#include "graph/a.h"'},
        {"graph/a.cpp": GUI, "graph/b_unix.cpp": GUI}, "graph/a <-> graph/b"),
    "circle of three": ({"link/a.h": '#include "link/b.h"', "link/b.h": '#include "link/c.h"',
                         "link/c.h": '#include "link/a.h"'}, {}, "link/a <-> link/b <-> link/c"),
    "core on gui in one folder": (
        {"graph/s.cpp": '#include "graph/w.h"', "graph/w.h": "", "graph/w.cpp": ""},
        {"graph/s.cpp": CORE, "graph/w.cpp": GUI}, "varnel_core may not include graph/w.h"),
    "widget in core":
        ({"link/r.cpp": "#include <QtWidgets/QMessageBox>"}, {"link/r.cpp": CORE}, "knows no widgets"),
    "meta-object in data":
        ({"data/d.h": "class D {\n    Q_GADGET\n};"}, {"data/d.h": DATA}, "no generated sources"),
    "forgotten source": ({"link/r.cpp": ""}, {}, "in no list"),
    "listed but gone": ({}, {"link/gone.cpp": CORE}, "no such file"),
    "not by folder": ({"link/r.h": '#include "s.h"', "link/s.h": ""}, {}, "included by folder"),
    "own rule of an inner folder": (
        {"graph/plot/p.h": '#include "link/recordingwindow.h"', "link/recordingwindow.h": ""}, {},
        "graph/plot may not include link/recordingwindow.h"),
    "main window": ({"dialogs/d.h": '#include "app/mainwindow.h"', "app/mainwindow.h": ""}, {},
                    "nothing below app"),
}


class Layers(unittest.TestCase):
    def test_trees(self):
        for name, (files, libraries, expected) in TREES.items():
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                src = Path(folder) / "src"
                src.mkdir()
                for path, text in files.items():
                    (src / path).parent.mkdir(parents=True, exist_ok=True)
                    (src / path).write_text(text, "utf-8")
                (src / "sources.cmake").write_text(
                    "".join(f"target_sources({library} PRIVATE {path})\n"
                            for path, library in libraries.items()),
                    "utf-8")
                faults = check_layers.check(Path(folder))
                if expected is None:
                    self.assertEqual(faults, [])
                else:
                    self.assertTrue(any(expected in fault for fault in faults), faults)


if __name__ == "__main__":
    unittest.main()
