import json
import os
import sys

sys.path.insert(0, os.path.dirname(__file__))
import camera  # noqa: E402
import modules  # noqa: E402

REPO = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "..")
GEN = os.path.join(REPO, "resources", "genicam")
UC = os.path.join(REPO, "resources", "usecases")
os.makedirs(GEN, exist_ok=True)
os.makedirs(UC, exist_ok=True)

CAMERA_HEADER = """Nodescope built-in simulated camera: Vanto VNT-SIM-2000.

GenICam GenApi schema 1.1 description, feature names follow the GenICam
Standard Features Naming Convention (SFNC); vendor-specific features carry
the prefix "Vnt".

Register map (all registers little endian, served from the sparse memory of
the simulated device through the port "Device"):
  0x00010000-0x0001FFFF  scalar registers, one per feature, 0x10 apart
  0x00020000-0x0002FFFF  command registers (<Command>CmdReg, IsDone = reads 0)
  0x00030000-0x0003FFFF  string registers, 0x100 apart
  0x00040000-0x0007FFFF  selector-indexed register blocks (pIndex)
  0x00080000-0x000FFFFF  large indexed blocks (lookup table)
Start values are in VantoSimCamera.defaults."""

MODULE_HEADER = """Nodescope host-side node map: %s.

GenICam GenApi schema 1.1 description served by the in-process simulated
port "Device" (little endian registers, 0x%X-0x%X).
Start values are in %s.defaults."""


def write(path, text):
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write(text)


def emit(nm, base, header_xml, header_defaults):
    xml = nm.render(header_xml)
    write(os.path.join(GEN, base + ".xml"), xml)
    write(os.path.join(GEN, base + ".defaults"), nm.render_defaults(header_defaults))
    return nm


emit(camera.m, "VantoSimCamera", CAMERA_HEADER,
     "Start values of the Nodescope built-in simulated camera (VantoSimCamera.xml).\n\n"
     "Format: one Name=Value per line, applied in order through the feature API\n"
     "with access checks disabled (read-only features can be set). Integers are\n"
     "decimal or 0x-hex, floats use a dot, enumerations use the entry name,\n"
     "booleans are true/false, strings run verbatim to the end of the line.\n"
     "Selected features are written after their selector; each selector is\n"
     "finally set back to its own start value.")

MODS = [(modules.tl, "VantoDeviceTransportLayer", "device transport layer", 0x100000),
        (modules.sg, "VantoStreamGrabber", "stream grabber StreamGrabber0", 0x200000),
        (modules.eg, "VantoEventGrabber", "event grabber", 0x300000),
        (modules.ic, "VantoImageFormatConverter", "image format converter", 0x400000)]
for nm, base, what, addr in MODS:
    emit(nm, base, MODULE_HEADER % (what, addr, addr + 0xFFFF, base),
         "Start values of the Nodescope %s node map (%s.xml).\n\n"
         "Format: one Name=Value per line, see VantoSimCamera.defaults." % (what, base))

# ------------------------------------------------------------------- use cases
import usecases  # noqa: E402

maps = {"CameraDevice": camera.m, "StreamGrabber0": modules.sg}
for uc in usecases.BASIC["UseCases"] + usecases.ALL["UseCases"]:
    seen = set()
    for p in uc["Parameters"]:
        assert p not in seen, ("duplicate", p)
        seen.add(p)
        mp, name = p[1:].split("/")
        assert name in maps[mp].fmap, ("missing", p)
write(os.path.join(UC, "basic.json"), json.dumps(usecases.BASIC, ensure_ascii=False, indent=2) + "\n")
write(os.path.join(UC, "usecases.json"), json.dumps(usecases.ALL, ensure_ascii=False, indent=2) + "\n")

# ------------------------------------------------------------------- report
if "--report" in sys.argv:
    for nm, base in [(camera.m, "VantoSimCamera")] + [(a, b) for a, b, _, _ in MODS]:
        print("==", base)
        lo = min(r[1] for r in nm.reg_info)
        hi = max(r[1] + r[2] for r in nm.reg_info)
        print("  %d registers, 0x%X .. 0x%X" % (len(nm.reg_info), lo, hi - 1))
        for r in nm.reg_info:
            if "-v" in sys.argv:
                print("   %-40s 0x%08X len %d %-12s %s %s" % r)
