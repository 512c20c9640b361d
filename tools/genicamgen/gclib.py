# Small helper library that renders GenICam (schema 1.1) node maps for the
# Nodescope simulated device.  Not part of the repository; it only produces
# the XML and .defaults files which are then checked with genicamcheck.
import re
from xml.sax.saxutils import escape

NS11 = "http://www.genicam.org/GenApi/Version_1_1"


def x(s):
    return escape(str(s))


def hexa(v):
    return "0x%X" % v


def split_camel(name):
    """Width -> Width, ExposureTimeAbs -> Exposure Time Abs, VntFoo -> Foo."""
    n = name[3:] if name.startswith("Vnt") else name
    n = n.replace("_", " ")
    n = re.sub(r"(?<=[a-z0-9])(?=[A-Z])", " ", n)
    n = re.sub(r"(?<=[A-Z])(?=[A-Z][a-z])", " ", n)
    return re.sub(r"\s+", " ", n).strip()


def first_sentence(doc):
    m = re.match(r"(.+?[.!?])(\s|$)", doc.strip())
    return m.group(1) if m else doc.strip()


class E:
    """Enumeration entry."""

    def __init__(self, name, value, doc=None, display=None, avail=None, impl=None, plain=False):
        self.name, self.value, self.doc = name, value, doc
        self.display = display or split_camel(name)
        self.avail, self.impl = avail, impl
        self.plain = plain  # no ToolTip or Description


class Feature:
    def __init__(self, kind, cat, name, doc, **kw):
        self.kind, self.cat, self.name, self.doc = kind, cat, name, doc
        self.kw = kw

    def __getattr__(self, k):
        try:
            return self.__dict__["kw"].get(k)
        except KeyError:
            raise AttributeError(k)


class NodeMap:
    def __init__(self, model, vendor, tooltip, product_guid, version_guid,
                 version=(1, 0, 0), std_ns="GEV", base=0x10000,
                 cmd_base=0x20000, str_base=0x30000, idx_base=0x40000,
                 big_base=0x80000):
        self.model, self.vendor, self.tooltip = model, vendor, tooltip
        self.product_guid, self.version_guid = product_guid, version_guid
        self.version, self.std_ns = version, std_ns
        self.next_addr = {"scalar": base, "cmd": cmd_base, "str": str_base,
                          "idx": idx_base, "big": big_base}
        self.cats = {}
        self.cat_order = []
        self.features = []
        self.fmap = {}
        self.helpers = {}          # category -> list of xml snippets
        self.extra_defaults = []   # (position marker, lines)
        self.sections = []         # (title, xml text): nodes of no category, before the port
        self.defaults_note = None  # a comment that ends the .defaults file
        self.names = set()
        self.reg_info = []         # (regname, address, length, type, note)
        self.selector_order = []

    # ------------------------------------------------------------------ names
    def claim(self, name):
        if name in self.names:
            raise SystemExit("duplicate node name " + name)
        self.names.add(name)

    def alloc(self, region, size):
        a = self.next_addr[region]
        step = {"scalar": 0x10, "cmd": 0x10, "str": 0x100,
                "idx": 0x100, "big": 0x1000}[region]
        n = max(step, (size + step - 1) // step * step)
        self.next_addr[region] = a + n
        return a

    # ------------------------------------------------------------- structure
    def category(self, name, parent, doc, display=None, vis="Beginner"):
        self.claim(name)
        self.cats[name] = dict(parent=parent, doc=doc, vis=vis,
                               display=display or split_camel(name), children=[])
        self.cat_order.append(name)
        if parent:
            self.cats[parent]["children"].append(name)

    def helper(self, cat, xml_text, name):
        self.claim(name)
        self.helpers.setdefault(cat, []).append(xml_text)

    def swissknife(self, cat, name, variables, formula, doc, integer=True,
                   expressions=(), unit=None):
        tag = "IntSwissKnife" if integer else "SwissKnife"
        s = ['\t<%s Name="%s" NameSpace="Custom">' % (tag, name),
             "\t\t<ToolTip>%s</ToolTip>" % x(doc),
             "\t\t<Visibility>Invisible</Visibility>"]
        for vn, node in variables:
            s.append('\t\t<pVariable Name="%s">%s</pVariable>' % (vn, node))
        for en, ex in expressions:
            s.append('\t\t<Expression Name="%s">%s</Expression>' % (en, x(ex)))
        s.append("\t\t<Formula>%s</Formula>" % x(formula))
        if unit:
            s.append("\t\t<Unit>%s</Unit>" % x(unit))
        s.append("\t</%s>" % tag)
        self.helper(cat, "\n".join(s), name)
        return name

    def section(self, title, xml_text, names):
        for name in names:
            self.claim(name)
        self.sections.append((title, xml_text))

    def constant(self, cat, name, value, doc):
        s = ['\t<Integer Name="%s" NameSpace="Custom">' % name,
             "\t\t<ToolTip>%s</ToolTip>" % x(doc),
             "\t\t<Visibility>Invisible</Visibility>",
             "\t\t<Value>%s</Value>" % value,
             "\t</Integer>"]
        self.helper(cat, "\n".join(s), name)
        return name

    def _feat(self, kind, cat, name, doc, **kw):
        self.claim(name)
        f = Feature(kind, cat, name, doc, **kw)
        self.features.append(f)
        self.fmap[name] = f
        self.cats[cat]["children"].append(name)
        return f

    def integer(self, cat, name, doc, **kw):
        return self._feat("Integer", cat, name, doc, **kw)

    def float(self, cat, name, doc, **kw):
        return self._feat("Float", cat, name, doc, **kw)

    def enum(self, cat, name, doc, entries, **kw):
        return self._feat("Enumeration", cat, name, doc, entries=entries, **kw)

    def boolean(self, cat, name, doc, **kw):
        return self._feat("Boolean", cat, name, doc, **kw)

    def command(self, cat, name, doc, **kw):
        return self._feat("Command", cat, name, doc, **kw)

    def string(self, cat, name, doc, **kw):
        return self._feat("String", cat, name, doc, **kw)

    # --------------------------------------------------------------- helpers
    def selector_count(self, sel):
        f = self.fmap[sel]
        if f.kind == "Enumeration":
            return max(e.value for e in f.entries) + 1
        return f.max + 1

    def selector_values(self, sel):
        f = self.fmap[sel]
        if f.kind == "Enumeration":
            return [e.name for e in f.entries]
        return list(range(f.min, f.max + 1, f.inc or 1))

    def regname(self, f):
        if f.reg:
            return f.reg
        if f.kind == "Command":
            return f.name + "CmdReg"
        return f.name + "Reg"

    def has_register(self, f):
        return (f.kind == "Command" or
                (f.value is None and f.pvalue is None and f.swiss is None))

    def reg_length(self, f):
        if f.length:
            return f.length
        if f.kind == "Float":
            return 8
        if f.kind == "String":
            return 64
        return 4

    # -------------------------------------------------------------- finalise
    def finalise(self):
        # pSelected lists
        self.selected = {}
        for f in self.features:
            if f.sel:
                self.selected.setdefault(f.sel, []).append(f.name)
        # addresses
        for f in self.features:
            if f.reserve:
                # Keeps the addresses after a register that was dropped where they were.
                self.alloc("scalar", f.reserve)
            if not self.has_register(f):
                continue
            length = self.reg_length(f)
            if f.kind == "Command":
                f.addr = self.alloc("cmd", length)
            elif f.sel and not f.noindex:
                count = self.selector_count(f.sel)
                region = "big" if count * length > 0x1000 else "idx"
                f.addr = self.alloc(region, count * length)
            elif f.kind == "String":
                f.addr = self.alloc("str", length)
            else:
                f.addr = self.alloc("scalar", length)

    # ------------------------------------------------------------ rendering
    def ns(self, name):
        return "Custom" if name.startswith("Vnt") else "Standard"

    def head(self, tag, f, name_space=None):
        s = ['\t<%s Name="%s" NameSpace="%s">' % (tag, f.name, name_space or self.ns(f.name))]
        s.append("\t\t<ToolTip>%s</ToolTip>" % x(f.tip or first_sentence(f.doc)))
        s.append("\t\t<Description>%s</Description>" % x(f.doc))
        s.append("\t\t<DisplayName>%s</DisplayName>" % x(f.display or split_camel(f.name)))
        s.append("\t\t<Visibility>%s</Visibility>" % (f.vis or "Beginner"))
        if f.impl:
            s.append("\t\t<pIsImplemented>%s</pIsImplemented>" % f.impl)
        if f.avail:
            s.append("\t\t<pIsAvailable>%s</pIsAvailable>" % f.avail)
        if f.locked:
            s.append("\t\t<pIsLocked>%s</pIsLocked>" % f.locked)
        if f.imposed:
            s.append("\t\t<ImposedAccessMode>%s</ImposedAccessMode>" % f.imposed)
        streamable = f.streamable
        if streamable is None:
            streamable = (f.kind in ("Integer", "Float", "Enumeration", "Boolean", "String")
                          and (f.access or "RW") == "RW" and f.value is None
                          and f.swiss is None and f.pvalue is None)
        if streamable and f.kind != "Command":
            s.append("\t\t<Streamable>Yes</Streamable>")
        return s

    def value_line(self, f):
        if f.value is not None:
            return "\t\t<Value>%s</Value>" % f.value
        if f.pvalue:
            return "\t\t<pValue>%s</pValue>" % f.pvalue
        if f.conv:
            return "\t\t<pValue>%sConv</pValue>" % f.name
        if f.swiss:
            return "\t\t<pValue>%s</pValue>" % f.swiss
        return "\t\t<pValue>%s</pValue>" % self.regname(f)

    def bound(self, tag, v):
        if v is None:
            return []
        if isinstance(v, str) and not re.match(r"^-?(0x[0-9A-Fa-f]+|[0-9.eE+-]+)$", v):
            return ["\t\t<p%s>%s</p%s>" % (tag, v, tag)]
        return ["\t\t<%s>%s</%s>" % (tag, v, tag)]

    def render_feature(self, f):
        s = self.head(f.kind, f)
        if f.kind == "Integer":
            s.append(self.value_line(f))
            if f.value is None and (f.min is None or f.max is None):
                raise SystemExit("%s %s needs Min and Max" % (f.kind, f.name))
            s += self.bound("Min", f.min) + self.bound("Max", f.max)
            if f.value is None:
                s += self.bound("Inc", f.inc if f.inc is not None else 1)
            if f.unit:
                s.append("\t\t<Unit>%s</Unit>" % x(f.unit))
            s.append("\t\t<Representation>%s</Representation>" % (f.repr or "Linear"))
            for sf in self.selected.get(f.name, []):
                s.append("\t\t<pSelected>%s</pSelected>" % sf)
        elif f.kind == "Float":
            s.append(self.value_line(f))
            if f.value is None and (f.min is None or f.max is None):
                raise SystemExit("%s %s needs Min and Max" % (f.kind, f.name))
            s += self.bound("Min", f.min) + self.bound("Max", f.max) + self.bound("Inc", f.inc)
            if f.unit:
                s.append("\t\t<Unit>%s</Unit>" % x(f.unit))
            s.append("\t\t<Representation>%s</Representation>" % (f.repr or "Linear"))
            if f.notation:
                s.append("\t\t<DisplayNotation>%s</DisplayNotation>" % f.notation)
            if f.precision is not None:
                s.append("\t\t<DisplayPrecision>%d</DisplayPrecision>" % f.precision)
        elif f.kind == "Enumeration":
            seen = set()
            for e in f.entries:
                assert e.name not in seen, (f.name, e.name)
                seen.add(e.name)
                s.append('\t\t<EnumEntry Name="%s" NameSpace="%s">' % (e.name, self.ns(e.name) if not f.name.startswith("Vnt") else "Custom"))
                edoc = e.doc or ("%s: %s." % (f.display or split_camel(f.name), e.display))
                if not e.plain:
                    s.append("\t\t\t<ToolTip>%s</ToolTip>" % x(first_sentence(edoc)))
                    s.append("\t\t\t<Description>%s</Description>" % x(edoc))
                s.append("\t\t\t<DisplayName>%s</DisplayName>" % x(e.display))
                if e.impl:
                    s.append("\t\t\t<pIsImplemented>%s</pIsImplemented>" % e.impl)
                if e.avail:
                    s.append("\t\t\t<pIsAvailable>%s</pIsAvailable>" % e.avail)
                s.append("\t\t\t<Value>%s</Value>" % (hexa(e.value) if e.value > 0xFFFF else e.value))
                s.append("\t\t</EnumEntry>")
            s.append(self.value_line(f))
            for sf in self.selected.get(f.name, []):
                s.append("\t\t<pSelected>%s</pSelected>" % sf)
        elif f.kind == "Boolean":
            s.append(self.value_line(f))
            s.append("\t\t<OnValue>1</OnValue>")
            s.append("\t\t<OffValue>0</OffValue>")
            for sf in self.selected.get(f.name, []):
                s.append("\t\t<pSelected>%s</pSelected>" % sf)
        elif f.kind == "Command":
            s.append(self.value_line(f))
            s.append("\t\t<CommandValue>1</CommandValue>")
        elif f.kind == "String":
            s.append(self.value_line(f))
        s.append("\t</%s>" % f.kind)
        out = "\n".join(s)
        if f.conv:
            out += "\n" + self.render_converter(f)
        if f.extra:
            name, text = f.extra
            self.claim(name)
            out += "\n" + text
        if self.has_register(f):
            out += "\n" + self.render_register(f)
        return out

    def render_converter(self, f):
        name = f.name + "Conv"
        self.claim(name)
        tag = "IntConverter" if f.kind == "Integer" else "Converter"
        to, frm = f.conv
        s = ['\t<%s Name="%s" NameSpace="Custom">' % (tag, name),
             "\t\t<ToolTip>Converts between %s and its register value.</ToolTip>" % f.name,
             "\t\t<Visibility>Invisible</Visibility>",
             "\t\t<FormulaTo>%s</FormulaTo>" % x(to),
             "\t\t<FormulaFrom>%s</FormulaFrom>" % x(frm),
             "\t\t<pValue>%s</pValue>" % self.regname(f)]
        if f.unit:
            s.append("\t\t<Unit>%s</Unit>" % x(f.unit))
        s.append("\t</%s>" % tag)
        return "\n".join(s)

    def render_register(self, f):
        name = self.regname(f)
        self.claim(name)
        length = self.reg_length(f)
        if f.kind == "Float":
            tag = "FloatReg"
        elif f.kind == "String":
            tag = "StringReg"
        elif f.masked:
            tag = "MaskedIntReg"
        else:
            tag = "IntReg"
        access = f.access or "RW"
        if f.kind == "Command":
            access = "RW"
        s = ['\t<%s Name="%s" NameSpace="Custom">' % (tag, name)]
        s.append("\t\t<Address>%s</Address>" % hexa(f.addr))
        note = ""
        if f.sel and not f.noindex:
            s.append('\t\t<pIndex Offset="%d">%sReg</pIndex>' % (length, f.sel))
            note = "indexed by %s, stride %d, %d entries" % (f.sel, length, self.selector_count(f.sel))
        s.append("\t\t<Length>%d</Length>" % length)
        s.append("\t\t<AccessMode>%s</AccessMode>" % access)
        s.append("\t\t<pPort>Device</pPort>")
        nocache = f.kind == "Command" or f.volatile
        s.append("\t\t<Cachable>%s</Cachable>" % ("NoCache" if nocache else "WriteThrough"))
        if f.poll:
            s.append("\t\t<PollingTime>%d</PollingTime>" % f.poll)
        invs = list(f.invalidators or [])
        if f.sel and not f.noindex:
            invs.insert(0, f.sel + "Reg")
        for inv in invs:
            s.append("\t\t<pInvalidator>%s</pInvalidator>" % inv)
        if tag in ("IntReg", "MaskedIntReg"):
            if tag == "MaskedIntReg":
                lsb, msb = f.masked
                if lsb == msb:
                    s.append("\t\t<Bit>%d</Bit>" % lsb)
                else:
                    s.append("\t\t<LSB>%d</LSB>" % lsb)
                    s.append("\t\t<MSB>%d</MSB>" % msb)
            s.append("\t\t<Sign>%s</Sign>" % ("Signed" if f.signed else "Unsigned"))
        if tag != "StringReg":
            s.append("\t\t<Endianess>LittleEndian</Endianess>")
        s.append("\t</%s>" % tag)
        self.reg_info.append((name, f.addr, length, tag, access, note))
        return "\n".join(s)

    def render_category(self, c):
        info = self.cats[c]
        s = ['\t<Category Name="%s" NameSpace="%s">' % (c, self.ns(c))]
        s.append("\t\t<ToolTip>%s</ToolTip>" % x(first_sentence(info["doc"])))
        s.append("\t\t<Description>%s</Description>" % x(info["doc"]))
        s.append("\t\t<DisplayName>%s</DisplayName>" % x(info["display"]))
        s.append("\t\t<Visibility>%s</Visibility>" % info["vis"])
        for ch in info["children"]:
            s.append("\t\t<pFeature>%s</pFeature>" % ch)
        s.append("\t</Category>")
        return "\n".join(s)

    def render(self, header_comment):
        self.finalise()
        out = ['<?xml version="1.0" encoding="UTF-8"?>']
        out.append("<!--\n" + header_comment.rstrip() + "\n-->")
        out.append('<RegisterDescription\n'
                   '\tModelName="%s"\n\tVendorName="%s"\n\tToolTip="%s"\n'
                   '\tStandardNameSpace="%s"\n'
                   '\tSchemaMajorVersion="1"\n\tSchemaMinorVersion="1"\n\tSchemaSubMinorVersion="0"\n'
                   '\tMajorVersion="%d"\n\tMinorVersion="%d"\n\tSubMinorVersion="%d"\n'
                   '\tProductGuid="%s"\n\tVersionGuid="%s"\n'
                   '\txmlns="%s"\n'
                   '\txmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"\n'
                   '\txsi:schemaLocation="%s GenApiSchema_Version_1_1.xsd">'
                   % (x(self.model), x(self.vendor), x(self.tooltip), self.std_ns,
                      self.version[0], self.version[1], self.version[2],
                      self.product_guid, self.version_guid, NS11, NS11))
        # Category tree first (depth-first), then features grouped by category.
        order = []

        def walk(c):
            order.append(c)
            for ch in self.cats[c]["children"]:
                if ch in self.cats:
                    walk(ch)
        walk("Root")
        missing = [c for c in self.cat_order if c not in order]
        if missing:
            raise SystemExit("unreachable categories: %s" % missing)
        for c in order:
            out.append("")
            bar = "=" * max(8, 70 - len(c))
            out.append("\t<!-- %s %s -->" % (c, bar))
            out.append("")
            out.append(self.render_category(c))
            for ch in self.cats[c]["children"]:
                if ch in self.fmap:
                    out.append("")
                    out.append(self.render_feature(self.fmap[ch]))
            for h in self.helpers.get(c, []):
                out.append("")
                out.append(h)
        for c in self.helpers:
            if c not in self.cats:
                raise SystemExit("helper category unknown " + c)
        for title, text in self.sections:
            out.append("")
            out.append("\t<!-- %s %s -->" % (title, "=" * max(8, 70 - len(title))))
            out.append("")
            out.append(text)
        out.append("")
        out.append('\t<!-- Port ' + "=" * 66 + ' -->')
        out.append("")
        out.append('\t<Port Name="Device" NameSpace="Standard">\n'
                   '\t\t<ToolTip>Port to the device register space.</ToolTip>\n'
                   '\t\t<Visibility>Invisible</Visibility>\n'
                   '\t</Port>')
        out.append("")
        out.append("</RegisterDescription>")
        return "\n".join(out) + "\n"

    # ------------------------------------------------------------- defaults
    def fmt_default(self, f, v):
        if f.kind == "Boolean":
            return "true" if v else "false"
        if f.kind == "Float":
            s = repr(float(v))
            if "e" in s or "E" in s:
                s = "%.6f" % v
            return s
        if f.kind == "Integer" and isinstance(v, str):
            return v
        return str(v)

    def render_defaults(self, header):
        lines = ["# " + l if l else "#" for l in header.rstrip().split("\n")]
        lines.append("")
        done_sel = set()
        by_sel = {}
        for f in self.features:
            if f.sel and not f.noindex and self.has_register(f) and f.default is not None:
                by_sel.setdefault(f.sel, []).append(f)
        cur_cat = None
        first = [self.fmap[n] for n in getattr(self, "defaults_first", [])]
        if first:
            lines.append("# Written first: other limits depend on them")
            for f in first:
                lines.append("%s=%s" % (f.name, self.fmt_default(f, f.default)))
        for f in self.features:
            if f in first:
                continue
            if f.cat != cur_cat:
                cur_cat = f.cat
                lines.append("")
                lines.append("# " + cur_cat)
            if f.name in by_sel and f.name not in done_sel:
                # A selector: first each selected value per selector entry,
                # then the selector's own default.
                done_sel.add(f.name)
                for v in self.selector_values(f.name):
                    if f.kind == "Enumeration" and [e for e in f.entries if e.name == v and e.avail]:
                        continue   # entry not always available: its values stay 0
                    block = []
                    for sf in by_sel[f.name]:
                        d = sf.default
                        if callable(d):
                            d = d(v)
                        elif isinstance(d, dict):
                            d = d.get(v, d.get("*"))
                        if d is None:
                            continue
                        block.append("%s=%s" % (sf.name, self.fmt_default(sf, d)))
                    if block:
                        lines.append("%s=%s" % (f.name, v))
                        lines += block
            if f.kind == "Command" or not self.has_register(f):
                continue
            if f.sel and not f.noindex:
                continue
            if f.impl and f.default is None:
                continue   # not implemented (legacy) features get no start value
            if f.default is None:
                raise SystemExit("no default for " + f.name)
            lines.append("%s=%s" % (f.name, self.fmt_default(f, f.default)))
        for sel in by_sel:
            if sel not in done_sel:
                raise SystemExit("selector %s not declared before its features" % sel)
        if self.defaults_note:
            lines.append("")
            lines.append("# " + self.defaults_note)
        return "\n".join(lines).replace("\n\n\n", "\n\n") + "\n"
