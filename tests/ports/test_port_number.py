"""A machine with sockets for USB serial adapters, and the numbers that the rule's helper gives them."""
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

HELPER = Path(__file__).resolve().parents[2] / "packaging" / "udev" / "varnelgraph-port-number"

# "A1@2:0:01=3": the adapter of serial number A1, with port 0 and interface 01, in socket 2, gets the
# number 3; "-A1@2" pulls it.
STORIES = {
    "with the serial number": "A1@1=1 A2@2=2 A1@1=1 -A1@1 -A2@2 A2@1=2 A3@3=3 A1@2=1 reboot A3@1=3 A1@3=1",
    "with the socket, where there is none": "@1.1=1 @1.1.1=2 reboot @1.1.1=2 @1.1=1",
    "with the socket, where it is shared":
        "0001@1=1 0001@2=2 0001@1=1 reboot 0001@2=2 0001@1=1 -0001@1 0001@3=3 0001@1=1",
    # The place where an adapter was last seen is no sign that it is still there.
    "in whose socket another sits now": "A1@1=1 -A1@1 A2@1=2 A1@2=1 reboot A1@5=1",
    "each port of one adapter": "A1@1:0=1 A1@1:1=2 A1@1:0:01=3 A1@1:0=1",
}


class Machine:
    def __init__(self, folder):
        self.folder = Path(folder)
        (self.folder / "dev").mkdir()

    def start(self, adapter):
        serial, place = adapter.split("@")
        socket, port, interface = (place.split(":") + ["", ""])[:3]
        device = "/devices/usb/" + place
        (self.folder / ("sys" + device)).mkdir(parents=True, exist_ok=True)
        environment = {"DEVPATH": device, "ID_PATH": "pci-0000:00:14.0-usb-0:" + socket,
                       "ID_VENDOR_ID": "0403", "ID_MODEL_ID": "6001",
                       "ID_USB_INTERFACE_NUM": interface or "00", "VARNELGRAPH_PORT": port}
        if serial:
            environment["ID_SERIAL_SHORT"] = serial
        folders = {"-s": "state", "-r": "run", "-y": "sys", "-d": "dev"}
        words = [word for option, name in folders.items() for word in (option, self.folder / name)]
        return subprocess.Popen([HELPER, *words], env=environment, stdout=subprocess.PIPE, text=True)

    def plug(self, adapter):
        """Its number; empty when it gets none."""
        helper = self.start(adapter)
        number = helper.communicate()[0].strip()
        return "" if helper.returncode else number

    def unplug(self, adapter):
        shutil.rmtree(self.folder / "sys/devices/usb" / adapter.split("@")[1])

    def reboot(self):
        for volatile in ("sys", "run"):
            shutil.rmtree(self.folder / volatile)


class PortNumber(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.machine = Machine(folder.name)

    def tell(self, story):
        for step in story.split():
            if step == "reboot":
                self.machine.reboot()
            elif step.startswith("-"):
                self.machine.unplug(step)
            else:
                adapter, number = step.split("=")
                self.assertEqual(self.machine.plug(adapter), number, step)

    def test_foreign_links_and_strange_names(self):
        (self.machine.folder / "dev/COM1").symlink_to("ttyS0")
        for _ in range(2):
            self.assertEqual(self.machine.plug("A 1\n2 serial x@1"), "2")
        refused = subprocess.run([HELPER, "-s", self.machine.folder, "-r", self.machine.folder],
                                 env={"DEVPATH": "/devices/x"}, capture_output=True)
        self.assertTrue(refused.returncode != 0 and not refused.stdout)

    def test_known_number_needs_no_writing(self):
        """Early in the start of a machine nothing but the run folder can be written."""
        self.tell("A1@1=1 reboot")
        registry = self.machine.folder / "state/ports"
        before = registry.read_bytes()
        registry.with_suffix(".new").mkdir()  # no file can be made of that name
        self.tell("A1@1=1 A2@2=")
        self.assertEqual(registry.read_bytes(), before)

    def test_several_at_once(self):
        helpers = [self.machine.start("A%d@%d" % (i, i)) for i in range(12)]
        numbers = {int(helper.communicate()[0]) for helper in helpers}
        self.assertEqual(numbers, set(range(1, 13)))


for name, story in STORIES.items():
    setattr(PortNumber, "test numbers stay " + name, lambda self, story=story: self.tell(story))

if __name__ == "__main__":
    unittest.main()
