# Host-side module node maps of Nodescope (transport layer device, stream
# grabber, event grabber, image format converter).
from gclib import NodeMap, E


def new(model, tooltip, pguid, vguid, base):
    return NodeMap(model=model, vendor="Vanto", tooltip=tooltip, product_guid=pguid, version_guid=vguid,
                   version=(1, 0, 0), std_ns="None", base=base, cmd_base=base + 0x1000, str_base=base + 0x2000,
                   idx_base=base + 0x4000, big_base=base + 0x8000)


# ======================================================= Device transport layer
# Every register of this node map is answered by the backend from the opened device (the
# Aravis device, or the simulated one), the way a GenTL producer's port is. Whether a feature
# exists for the device at hand is its own register, set by the backend per device: a feature
# it can't back is not implemented rather than shown with a made-up value.
tl = new("NodescopeDeviceTransportLayer", "Host-side transport layer parameters of an opened device",
         "0B7E1C55-6A2D-4F3B-9E84-1D2C3B4A5F60", "7C1D2E3F-4A5B-4C6D-8E7F-9A0B1C2D3E4F", 0x100000)
TL_IMPLEMENTED = 0x10F000  # one 4-byte register per feature, in the order they are declared
tl_implemented = []


def backing_reg(name, address, doc, invisible=True):
    """A read-only 4-byte register that the backend answers: whether it backs a feature."""
    return "\n".join(
        ['\t<IntReg Name="%s" NameSpace="Custom">' % name,
         "\t\t<ToolTip>%s</ToolTip>" % doc] +
        (["\t\t<Visibility>Invisible</Visibility>"] if invisible else []) +
        ["\t\t<Address>0x%X</Address>" % address,
         "\t\t<Length>4</Length>",
         "\t\t<AccessMode>RO</AccessMode>",
         "\t\t<pPort>Device</pPort>",
         "\t\t<Cachable>NoCache</Cachable>",
         "\t\t<Sign>Unsigned</Sign>",
         "\t\t<Endianess>LittleEndian</Endianess>",
         "\t</IntReg>"])


def tl_impl(cat, name):
    reg = "Vnt%sImplemented" % (name[3:] if name.startswith("Vnt") else name)
    tl.helper(cat, backing_reg(reg, TL_IMPLEMENTED + 4 * len(tl_implemented),
                               "1 when the backend can back %s for this device." % name), reg)
    tl_implemented.append(name)
    return reg


def tl_feature(kind, cat, name, doc, *args, **kw):
    kw.setdefault("volatile", True)
    return getattr(tl, kind)(cat, name, doc, *args, impl=tl_impl(cat, name), **kw)


tl.category("Root", None, "Root category of the device transport layer node map.", display="Root")
C = "DeviceInformation"
tl.category(C, "Root", "Identification of the device as seen by the transport layer.", display="Device Information")
tl_feature("string", C, "DeviceID", "Identifier the device was opened with: its address, its Aravis id, or the "
           "simulated device's name.", access="RO", length=64)
tl_feature("string", C, "DeviceVendorName", "Name of the device vendor, as the device reports it.", access="RO", length=64)
tl_feature("string", C, "DeviceModelName", "Name of the device model, as the device reports it; for a device simulated "
           "from a description file, the file's name.", access="RO", length=64)
tl_feature("string", C, "DeviceSerialNumber", "Serial number of the device, as the device reports it.", access="RO",
           length=64)
tl_feature("string", C, "DeviceUserID", "User-defined name of the device, as the device reports it.", access="RO",
           length=64)
tl_feature("string", C, "DeviceDisplayName", "Vendor, model and serial number of the device, as shown in the user interface.",
           access="RO", length=128)
tl_feature("enum", C, "DeviceType", "Transport layer technology of the device.",
           [E("GigEVision", 0, "GigE Vision device.", display="GigE Vision"), E("USB3Vision", 1, "USB3 Vision device."),
            E("VntSimulated", 2, "Device simulated inside the application.", display="Simulated"),
            E("Custom", 3, "Other transport layer.")], access="RO")
tl_feature("enum", C, "DeviceAccessStatus", "Access this application has to the device.",
           [E("Unknown", 0, "The status could not be determined."), E("ReadWrite", 1, "The device is available for full access."),
            E("ReadOnly", 2, "The device can only be opened for reading."), E("NoAccess", 3, "The device cannot be opened."),
            E("Busy", 4, "The device is opened by another application."),
            E("OpenReadWrite", 5, "The device is opened by this application with full access."),
            E("OpenReadOnly", 6, "The device is opened by this application for reading.")], access="RO")
tl_feature("integer", C, "DeviceTLVersionMajor", "Major version of the transport layer protocol the device implements, "
           "from its bootstrap registers.", access="RO", min=0, max=65535, repr="PureNumber", vis="Expert")
tl_feature("integer", C, "DeviceTLVersionMinor", "Minor version of the transport layer protocol the device implements, "
           "from its bootstrap registers.", access="RO", min=0, max=65535, repr="PureNumber", vis="Expert")
tl_feature("enum", C, "DeviceEndianessMechanism", "How the transport layer handles the endianness of the device registers.",
           [E("Legacy", 0, "Registers are swapped by the transport layer."),
            E("Standard", 1, "The GenICam XML describes the endianness.")], access="RO", vis="Guru")
C = "VntGigEVisionTransport"
tl.category(C, "Root", "Network addresses of a GigE Vision device.", display="GigE Vision", vis="Expert")
tl_feature("integer", C, "GevDeviceIPAddress", "Current IP address of the device.", access="RO", min=0, max=0xFFFFFFFF,
           repr="IPV4Address", vis="Expert")
tl_feature("integer", C, "GevDeviceSubnetMask", "Current subnet mask of the device.", access="RO", min=0, max=0xFFFFFFFF,
           repr="IPV4Address", vis="Expert")
tl_feature("integer", C, "GevDeviceGateway", "Current default gateway of the device.", access="RO", min=0, max=0xFFFFFFFF,
           repr="IPV4Address", vis="Expert")
tl_feature("integer", C, "GevDeviceMACAddress", "MAC address of the device.", access="RO", length=8, min=0,
           max=0xFFFFFFFFFFFF, repr="MACAddress", vis="Expert")
tl_feature("integer", C, "VntHostInterfaceIPAddress", "IP address of the host network interface the device is reached through.",
           access="RO", min=0, max=0xFFFFFFFF, repr="IPV4Address", vis="Expert")
C = "VntConnectionControl"
tl.category(C, "Root", "Parameters of the control connection between host and device.", display="Connection Control")
tl_feature("integer", C, "VntHeartbeatTimeout", "Time after which the device closes the connection when the host stops "
           "sending heartbeats. Increase it while debugging; the host sends a heartbeat about every second.",
           min=1000, max=600000, unit="ms", vis="Expert")
tl_feature("integer", C, "VntCommandTimeout", "Time the host waits for the answer to a control command.", min=10, max=10000,
           unit="ms", vis="Expert")
tl_feature("integer", C, "VntCommandRetryCount", "Number of times a control command is repeated before it fails.", min=0,
           max=10, vis="Guru")
tl_feature("integer", C, "VntPacketSize", "Packet size used for the image stream. The largest value supported by all "
           "network components is best; VntPacketSizeNegotiate finds it.", min=576, max=9000, inc=4, unit="B",
           vis="Expert", invalidators=["VntPacketSizeNegotiateCmdReg"])
tl_feature("command", C, "VntPacketSizeNegotiate", "Finds the largest packet size that reaches the host and sets "
           "VntPacketSize to it.", vis="Expert", volatile=None)
tl_feature("enum", C, "VntRegisterCacheMode", "Caching of device register values on the host.",
           [E("Off", 0, "Every read accesses the device."), E("On", 1, "Values of cachable registers are cached."),
            E("Debug", 2, "Values are cached and compared with the device.")], vis="Guru")
tl_feature("command", C, "VntDeviceReconnect", "Closes the connection to the device and opens it again.", vis="Expert",
           volatile=None)

# ============================================================= Stream grabber
# The camera's stream answers these registers (StreamChannel binds them by name). What a stream
# can't back is not implemented, through one of three registers, rather than shown with a
# made-up value: a camera without a stream has no buffers or counts, only a GigE Vision stream
# counts packets and takes the transport options, and nothing honours the rest.
sg = new("NodescopeStreamGrabber", "Parameters and statistics of the stream grabber StreamGrabber0",
         "3A4B5C6D-7E8F-4091-A2B3-C4D5E6F70819", "91A2B3C4-D5E6-47F8-9A0B-1C2D3E4F5A6B", 0x200000)
HAS_BUFFERS = "VntStreamHasBuffersReg"
COUNTS_PACKETS = "VntStreamCountsPacketsReg"
NOT_HONOURED = "VntNotHonouredReg"


sg.section("What the camera's stream backs", "\n".join([
    backing_reg(HAS_BUFFERS, 0x200200,
                "1 when the camera has a stream whose buffers and counts the features show.", invisible=False),
    backing_reg(COUNTS_PACKETS, 0x200210,
                "1 when the camera's stream is a GigE Vision stream: packets, resends and missed frames "
                "are counted and its transport options apply.", invisible=False),
    backing_reg(NOT_HONOURED, 0x200220,
                "0: the stream does not honour the features that refer to it.", invisible=False)]),
    [HAS_BUFFERS, COUNTS_PACKETS, NOT_HONOURED])
sg.defaults_note = "The statistics and the announced buffers are read from the camera's stream."
sg.category("Root", None, "Root category of the stream grabber node map.", display="Root")
C = "BufferHandlingControl"
sg.category(C, "Root", "Buffers used to receive images.", display="Buffer Handling")
sg.integer(C, "MaxNumBuffer", "Maximum number of buffers that can be used simultaneously for grabbing images. Increase it if buffers underrun at high frame rates.",
           min=1, max=1024, vis="Beginner", default=10, display="Maximum Number of Buffers", impl=HAS_BUFFERS)
sg.integer(C, "MaxBufferSize", "Maximum size of one buffer. Must be at least the payload size of the camera.",
           min=1, max=0x7FFFFFFF, unit="B", vis="Expert", default=1920 * 1200 * 3, impl=NOT_HONOURED)
sg.enum(C, "StreamBufferHandlingMode", "Order in which filled buffers are delivered to the application.",
        [E("OldestFirst", 0, "Buffers are delivered in the order they were filled."),
         E("OldestFirstOverwrite", 1, "Like OldestFirst, but the oldest filled buffer is reused when no empty buffer is left."),
         E("NewestOnly", 2, "Only the most recent buffer is delivered; older ones are discarded.")],
        vis="Expert", default="OldestFirst", impl=NOT_HONOURED)
sg.integer(C, "StreamAnnouncedBufferCount", "Number of buffers currently announced to the stream.", access="RO",
           volatile=True, poll=1000, min=0, max=1024, vis="Expert", default=None, impl=HAS_BUFFERS)
C = "VntStreamTransportControl"
sg.category(C, "Root", "Packet reception and resend parameters.", display="Transport Control", vis="Expert")
sg.boolean(C, "VntResendRequestEnable", "Enables requests for the resend of lost packets.", vis="Expert", default=True,
           impl=COUNTS_PACKETS)
sg.integer(C, "VntPacketTimeout", "Time after which a missing packet is considered lost.", min=1, max=10000, unit="ms",
           vis="Expert", default=40, impl=COUNTS_PACKETS)
sg.integer(C, "VntFrameRetention", "Time after which an incomplete frame is delivered as failed.", min=1, max=60000, unit="ms",
           vis="Expert", default=200, impl=COUNTS_PACKETS)
sg.integer(C, "VntMaximumResendRequestsPerFrame", "Maximum number of resend requests sent for one frame.", min=0, max=1000,
           vis="Guru", default=100, impl=NOT_HONOURED)
sg.integer(C, "VntSocketBufferSize", "Size of the receive socket buffer.", min=64, max=65536, unit="KiB", vis="Guru",
           default=2048, impl=COUNTS_PACKETS)
C = "Statistics"
sg.category(C, "Root", "Counters that show whether images or packets are lost. They are updated continuously.")
STAT = [("Statistic_Total_Buffer_Count", "Number of buffers delivered, including failed ones.", HAS_BUFFERS),
        ("Statistic_Failed_Buffer_Count", "Number of buffers that were delivered incomplete or with an error.", HAS_BUFFERS),
        ("Statistic_Buffer_Underrun_Count", "Number of frames lost because no empty buffer was available. Increase MaxNumBuffer if it grows.",
         HAS_BUFFERS),
        ("Statistic_Total_Packet_Count", "Number of stream packets received.", COUNTS_PACKETS),
        ("Statistic_Failed_Packet_Count", "Number of stream packets that were lost or damaged.", COUNTS_PACKETS),
        ("Statistic_Resend_Request_Count", "Number of resend requests sent to the device.", COUNTS_PACKETS),
        ("Statistic_Resend_Packet_Count", "Number of packets the device sent again after a resend request.", COUNTS_PACKETS),
        ("Statistic_Missed_Frame_Count", "Number of frames that the device captured but the host never received.",
         COUNTS_PACKETS)]
for n, d, backing in STAT:
    sg.integer(C, n, d, access="RO", volatile=True, poll=1000, length=8, min=0, max=0x7FFFFFFFFFFFFFFF,
               repr="PureNumber", display=n[len("Statistic_"):].replace("_", " "), default=None, impl=backing)
sg.command(C, "Statistic_Reset", "Resets all statistic counters to 0.", vis="Expert", display="Reset Statistics",
           impl=HAS_BUFFERS)

# ============================================================== Event grabber
eg = new("NodescopeEventGrabber", "Parameters of the event grabber that receives device events",
         "5E6F7A8B-9C0D-4E1F-A2B3-C4D5E6F7A8B9", "C0D1E2F3-A4B5-4C6D-9E8F-0A1B2C3D4E5F", 0x300000)
eg.category("Root", None, "Root category of the event grabber node map.", display="Root")
C = "EventGrabberControl"
eg.category(C, "Root", "Reception of event messages from the device.", display="Event Grabber Control")
eg.integer(C, "NumBuffer", "Number of buffers used to receive event messages.", min=1, max=1024, default=20,
           display="Number of Buffers")
eg.integer(C, "RetryCount", "Number of times an event message is requested again when its acknowledgement is lost.",
           min=0, max=20, vis="Expert", default=2)
eg.integer(C, "Timeout", "Time after which a missing acknowledgement of an event message is considered lost.", min=1,
           max=10000, unit="ms", vis="Expert", default=300)
eg.boolean(C, "VntEventThreadPriorityOverride", "Uses VntEventThreadPriority for the thread that receives events.",
           vis="Guru", default=False)
eg.integer(C, "VntEventThreadPriority", "Priority of the thread that receives events.", min=0, max=99, vis="Guru",
           avail="VntEventThreadPriorityOverrideReg", default=25)
C = "VntEventStatistics"
eg.category(C, "Root", "Counters of received and lost events.", display="Event Statistics", vis="Expert")
eg.integer(C, "VntEventQueueFillLevel", "Number of received events waiting to be processed.", access="RO", volatile=True,
           poll=1000, min=0, max=1024, vis="Expert", default=0)
eg.integer(C, "VntEventsReceived", "Number of events received since the statistics were reset.", access="RO", volatile=True,
           poll=1000, length=8, min=0, max=0x7FFFFFFFFFFFFFFF, repr="PureNumber", vis="Expert", default=0)
eg.integer(C, "VntEventsLost", "Number of events lost since the statistics were reset.", access="RO", volatile=True,
           poll=1000, length=8, min=0, max=0x7FFFFFFFFFFFFFFF, repr="PureNumber", vis="Expert", default=0)
eg.command(C, "VntEventStatisticsReset", "Resets the event counters.", vis="Expert")

# Aravis gives this application no channel for device events, so nothing here is backed by a
# real source: every feature is not implemented, and the node map stays only as the place
# where events will appear once they are received.
eg.constant("Root", "VntEventChannelImplemented", 0,
            "No device events are received: the event grabber's features are not implemented.")
for f in eg.features:
    f.kw["impl"] = "VntEventChannelImplemented"
    f.kw["default"] = None

# ===================================================== Image format converter
ic = new("NodescopeImageFormatConverter", "Parameters of the conversion of grabbed images for display and saving",
         "8B9C0D1E-2F3A-4B4C-8D5E-6F7A8B9C0D1E", "D2E3F4A5-B6C7-4D8E-9F0A-1B2C3D4E5F6A", 0x400000)
ic.category("Root", None, "Root category of the image format converter node map.", display="Root")
C = "ImageFormatConverterControl"
ic.category(C, "Root", "Output format and conversion parameters.", display="Image Format Converter")
# Only what the display conversion really does: its output format and a gamma curve.
# Demosaicing has one method (swscale's bilinear), so it has no feature.
ic.enum(C, "OutputPixelFormat",
        "Pixel format of the displayed image: colour frames in colour (RGB8) or as their luminance (Mono8). "
        "Monochrome frames are always shown in grey.",
        [E("Mono8", 0x01080001, "Grey levels; colour frames show their luminance."),
         E("RGB8", 0x02180014, "RGB, 8 bits per component.")],
        default="RGB8")
ic.float(C, "Gamma",
         "Gamma curve of the displayed values, normalised to 0 to 1: output = input ^ Gamma. "
         "1 leaves them unchanged; below 1 brightens the dark tones.",
         min=0.1, max=10.0, repr="PureNumber", notation="Fixed", precision=2, vis="Expert", default=1.0)
