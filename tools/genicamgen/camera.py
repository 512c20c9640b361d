# Definition of the Nodescope built-in simulated camera "VNT-SIM-2000".
from gclib import NodeMap, E

m = NodeMap(model="VNT-SIM-2000", vendor="Vanto",
            tooltip="Vanto VNT-SIM-2000 simulated area scan camera (Nodescope built-in device)",
            product_guid="6F1C2A4E-3B7D-4E59-9A1F-2C8D5E7B9013",
            version_guid="B2E4D6F8-1A3C-4E5F-8B7D-9C0E1F2A3B4C",
            version=(1, 0, 0), std_ns="GEV")

LOCK_IMG = "VntImageFormatLocked"
US = "µs"

ONOFF = [E("Off", 0, "Disabled."), E("On", 1, "Enabled.")]
AUTO = [E("Off", 0, "Automatic mode is off; the value is set manually."),
        E("Once", 1, "The value is adjusted once by the device, then the mode returns to Off."),
        E("Continuous", 2, "The value is adjusted continuously by the device.")]
EDGES = [E("RisingEdge", 0, "Active on the rising edge of the signal."),
         E("FallingEdge", 1, "Active on the falling edge of the signal."),
         E("AnyEdge", 2, "Active on both edges of the signal.")]
EDGES_LEVELS = EDGES + [E("LevelHigh", 3, "Active while the signal is high."),
                        E("LevelLow", 4, "Active while the signal is low.")]


def edges(levels=False):
    return [E(e.name, e.value, e.doc) for e in (EDGES_LEVELS if levels else EDGES)]


def auto():
    return [E(e.name, e.value, e.doc) for e in AUTO]


def onoff():
    return [E(e.name, e.value, e.doc) for e in ONOFF]


# =========================================================================== Root
m.category("Root", None, "Root category of the VNT-SIM-2000 feature tree.", display="Root")

# ------------------------------------------------------------------ DeviceControl
C = "DeviceControl"
m.category(C, "Root", "Features that describe and control the device as a whole: identification, link, temperature and reset.")
m.enum(C, "DeviceType", "Returns the device type. The VNT-SIM-2000 is a transmitter of image data.",
       [E("Transmitter", 0, "Data stream transmitter (camera)."), E("Receiver", 1, "Data stream receiver."),
        E("Transceiver", 2, "Data stream transmitter and receiver."), E("Peripheral", 3, "Controllable device without data stream.")],
       access="RO", vis="Expert", default="Transmitter")
m.enum(C, "DeviceScanType", "Scan type of the sensor of the device.",
       [E("Areascan", 0, "Two-dimensional area scan sensor.")], access="RO", vis="Expert", default="Areascan")
m.string(C, "DeviceVendorName", "Name of the manufacturer of the device.", access="RO", length=32, default="Vanto")
m.string(C, "DeviceModelName", "Model name of the device.", access="RO", length=32, default="VNT-SIM-2000")
m.string(C, "DeviceFamilyName", "Name of the product family of the device.", access="RO", length=32, vis="Expert",
         default="Vanto Simulated Cameras")
m.string(C, "DeviceManufacturerInfo", "Additional information from the manufacturer about the device.", access="RO",
         length=64, vis="Expert", default="Simulated GenICam camera built into Nodescope")
m.string(C, "DeviceVersion", "Version of the device (hardware revision).", access="RO", length=32, vis="Expert", default="1.0.0")
m.string(C, "DeviceFirmwareVersion", "Version of the firmware running on the device.", access="RO", length=32,
         default="SIM-FW 1.0.0")
m.string(C, "DeviceSerialNumber", "Serial number of the device.", access="RO", length=16, default="SIM0001")
m.string(C, "DeviceUserID", "User-programmable device identifier. Use it to give the camera a name of your choice; it is stored in non-volatile memory.",
         length=16, default="")
m.integer(C, "DeviceSFNCVersionMajor", "Major version of the Standard Features Naming Convention used to create the device's GenICam XML.",
          value=2, imposed="RO", repr="PureNumber", vis="Expert")
m.integer(C, "DeviceSFNCVersionMinor", "Minor version of the Standard Features Naming Convention used to create the device's GenICam XML.",
          value=7, imposed="RO", repr="PureNumber", vis="Expert")
m.integer(C, "DeviceSFNCVersionSubMinor", "Sub-minor version of the Standard Features Naming Convention used to create the device's GenICam XML.",
          value=0, imposed="RO", repr="PureNumber", vis="Expert")
m.enum(C, "DeviceTLType", "Transport layer type of the device.",
       [E("GigEVision", 1, "GigE Vision transport layer."), E("USB3Vision", 3, "USB3 Vision transport layer."),
        E("Custom", 99, "Vendor-specific transport layer.")], access="RO", vis="Expert", default="GigEVision")
m.integer(C, "DeviceTLVersionMajor", "Major version of the transport layer standard the device complies with.",
          access="RO", min=0, max=65535, repr="PureNumber", vis="Expert", default=2)
m.integer(C, "DeviceTLVersionMinor", "Minor version of the transport layer standard the device complies with.",
          access="RO", min=0, max=65535, repr="PureNumber", vis="Expert", default=2)
m.enum(C, "DeviceCharacterSet", "Character set used by the strings of the device's bootstrap registers.",
       [E("UTF8", 1, "UTF-8 character set.", display="UTF-8"), E("ASCII", 2, "ASCII character set.")],
       access="RO", vis="Guru", default="UTF8")
m.enum(C, "DeviceRegistersEndianness", "Endianness of the registers of the device.",
       [E("Little", 0, "Little endian registers."), E("Big", 1, "Big endian registers.")],
       access="RO", vis="Guru", default="Little")
m.integer(C, "DeviceMaxThroughput", "Maximum bandwidth of the data that can be streamed out of the device.",
          access="RO", unit="Bps", min=0, max=1250000000, vis="Expert", default=125000000)
m.integer(C, "DeviceLinkSelector", "Selects which link of the device to control.", min=0, max=0, vis="Expert", default=0)
m.integer(C, "DeviceLinkSpeed", "Speed of transmission negotiated on the selected link.", sel="DeviceLinkSelector",
          access="RO", unit="Bps", min=0, max=1250000000, vis="Expert", default=125000000)
m.enum(C, "DeviceLinkThroughputLimitMode",
       "Controls whether the device limits the bandwidth it uses on the selected link. When On, DeviceLinkThroughputLimit sets the maximum.",
       onoff(), sel="DeviceLinkSelector", vis="Expert", default="Off")
m.swissknife(C, "VntThroughputLimitAvailable", [("M", "DeviceLinkThroughputLimitModeReg")], "M = 1",
             "True while the link throughput limit is enabled.")
m.integer(C, "DeviceLinkThroughputLimit",
          "Maximum bandwidth the device may use on the selected link. Lower it when several cameras share one network link to avoid lost packets.",
          sel="DeviceLinkSelector", min=1000000, max=125000000, inc=1, unit="Bps", repr="Logarithmic",
          avail="VntThroughputLimitAvailable", vis="Expert", default=125000000)
m.integer(C, "DeviceLinkCurrentThroughput",
          "Bandwidth currently required by the image stream on the selected link (payload size times resulting frame rate).",
          swiss="VntCurrentThroughputCalc", unit="Bps", min=0, max=1250000000, vis="Expert")
m.swissknife(C, "VntCurrentThroughputCalc", [("P", "PayloadSizeReg"), ("EXPO", "ExposureTimeReg"),
                                             ("R", "VntSensorReadoutTime"), ("EN", "AcquisitionFrameRateEnableReg"),
                                             ("FR", "AcquisitionFrameRateReg")],
             "((EN <> 0) && (FR < (1000000 / MAXT))) ? (P * FR) : ((P * 1000000) / MAXT)",
             "Payload size multiplied by the resulting frame rate (integer arithmetic).",
             expressions=[("MAXT", "(EXPO > R) ? EXPO : R")])
m.enum(C, "DeviceLinkHeartbeatMode", "Activates or deactivates the heartbeat of the selected link.",
       onoff(), sel="DeviceLinkSelector", vis="Guru", default="On")
m.float(C, "DeviceLinkHeartbeatTimeout", "Time after which the device closes the control connection when no heartbeat is received.",
        sel="DeviceLinkSelector", min=500000.0, max=60000000.0, unit=US, vis="Guru", default=3000000.0)
m.float(C, "DeviceLinkCommandTimeout", "Time after which a control command sent on the selected link is considered lost.",
        sel="DeviceLinkSelector", access="RO", min=0.0, max=10000000.0, unit=US, vis="Guru", default=200000.0)
m.enum(C, "DeviceIndicatorMode", "Controls the behavior of the status LED of the device.",
       [E("Inactive", 0, "The indicator is off."), E("Active", 1, "The indicator shows the device status."),
        E("ErrorStatus", 2, "The indicator only lights up on errors.")], vis="Expert", default="Active")
m.enum(C, "DeviceTemperatureSelector", "Selects the location within the device where the temperature is measured.",
       [E("Sensor", 0, "Temperature of the image sensor."), E("Mainboard", 1, "Temperature of the main board.")],
       vis="Expert", default="Sensor")
m.float(C, "DeviceTemperature", "Temperature at the location selected by DeviceTemperatureSelector. The value is updated continuously by the device.",
        sel="DeviceTemperatureSelector", access="RO", volatile=True, poll=1000, min=-40.0, max=125.0, unit="C",
        notation="Fixed", precision=1, vis="Expert", default={"Sensor": 42.5, "Mainboard": 38.0})
m.enum(C, "VntDeviceTemperatureStatus", "Temperature state of the device. Critical means the device reduces its performance; Error means it stopped acquiring to protect the sensor.",
       [E("Ok", 0, "Temperature within the operating range."), E("Critical", 1, "Temperature close to the upper limit."),
        E("Error", 2, "Temperature above the upper limit.")], access="RO", volatile=True, vis="Expert", default="Ok")
m.integer(C, "VntDeviceUptime", "Time since the device was powered on or reset.", access="RO", volatile=True,
          min=0, max=4294967295, unit="s", vis="Guru", default=0)
m.command(C, "DeviceReset", "Resets the device to its power-up state. The connection to the device is lost afterwards.", vis="Guru")
m.command(C, "TimestampLatch", "Latches the current timestamp counter into TimestampLatchValue.", vis="Expert")
m.command(C, "TimestampReset", "Resets the timestamp counter of the device to 0.", vis="Expert")
m.integer(C, "Timestamp", "Current value of the timestamp counter of the device, in nanoseconds since it was opened or TimestampReset.",
          access="RO", volatile=True, length=8, signed=True, min=0, max=9223372036854775807, unit="ns",
          repr="PureNumber", vis="Expert", default=0)
m.integer(C, "TimestampLatchValue", "Value of the timestamp counter latched by TimestampLatch, in nanoseconds.",
          access="RO", volatile=True, length=8, signed=True, min=0, max=9223372036854775807, unit="ns",
          repr="PureNumber", vis="Expert", default=0)

# -------------------------------------------------------------- ImageFormatControl
C = "ImageFormatControl"
m.category(C, "Root", "Features that control the size, position and pixel format of the transmitted image.")
m.integer(C, "SensorWidth", "Effective width of the sensor in pixels.", access="RO", min=1, max=65535, unit="px",
          vis="Expert", default=1920)
m.integer(C, "SensorHeight", "Effective height of the sensor in pixels.", access="RO", min=1, max=65535, unit="px",
          vis="Expert", default=1200)
m.float(C, "SensorPixelWidth", "Physical width of a sensor pixel.", access="RO", min=0.0, max=100.0, unit="µm",
        notation="Fixed", precision=2, vis="Guru", default=5.86)
m.float(C, "SensorPixelHeight", "Physical height of a sensor pixel.", access="RO", min=0.0, max=100.0, unit="µm",
        notation="Fixed", precision=2, vis="Guru", default=5.86)
m.string(C, "SensorName", "Name of the image sensor.", access="RO", length=32, vis="Expert", default="VNT-CMOS-2300C")
m.enum(C, "SensorShutterMode", "Shutter mode of the sensor.",
       [E("Global", 0, "All pixels are exposed at the same time."),
        E("Rolling", 1, "Pixel rows are exposed one after the other; gives a shorter frame time."),
        E("GlobalReset", 2, "All rows start exposing at the same time, but end one after the other.")],
       locked=LOCK_IMG, vis="Expert", default="Global")
m.integer(C, "WidthMax", "Maximum width of the image after horizontal binning and decimation.",
          swiss="VntWidthMaxCalc", min=16, max=65535, unit="px", vis="Expert")
m.swissknife(C, "VntWidthMaxCalc", [("SW", "SensorWidthReg"), ("BH", "BinningHorizontalReg"), ("DH", "DecimationHorizontalReg")],
             "((SW / (BH * DH)) / 16) * 16", "Sensor width divided by binning and decimation, rounded down to the width increment.")
m.integer(C, "HeightMax", "Maximum height of the image after vertical binning and decimation.",
          swiss="VntHeightMaxCalc", min=2, max=65535, unit="px", vis="Expert")
m.swissknife(C, "VntHeightMaxCalc", [("SH", "SensorHeightReg"), ("BV", "BinningVerticalReg"), ("DV", "DecimationVerticalReg")],
             "((SH / (BV * DV)) / 2) * 2", "Sensor height divided by binning and decimation, rounded down to the height increment.")
m.integer(C, "Width", "Width of the image provided by the device, in pixels. The maximum depends on OffsetX, binning and decimation.",
          min=16, max="VntWidthMaxRemaining", inc=16, unit="px", locked=LOCK_IMG, default=1920)
m.swissknife(C, "VntWidthMaxRemaining", [("WMAX", "WidthMax"), ("OX", "OffsetXReg")], "WMAX - OX",
             "Largest width possible at the current horizontal offset.")
m.integer(C, "Height", "Height of the image provided by the device, in pixels. The maximum depends on OffsetY, binning and decimation.",
          min=2, max="VntHeightMaxRemaining", inc=2, unit="px", locked=LOCK_IMG, default=1200)
m.swissknife(C, "VntHeightMaxRemaining", [("HMAX", "HeightMax"), ("OY", "OffsetYReg")], "HMAX - OY",
             "Largest height possible at the current vertical offset.")
m.integer(C, "OffsetX", "Horizontal offset from the origin to the region of interest, in pixels.",
          min=0, max="VntOffsetXMax", inc=16, unit="px", locked="VntOffsetXLocked", volatile=True, default=0)
m.swissknife(C, "VntOffsetXMax", [("WMAX", "WidthMax"), ("W", "WidthReg")], "WMAX - W",
             "Largest horizontal offset possible at the current width.")
m.integer(C, "OffsetY", "Vertical offset from the origin to the region of interest, in pixels.",
          min=0, max="VntOffsetYMax", inc=2, unit="px", locked="VntOffsetYLocked", volatile=True, default=0)
m.swissknife(C, "VntOffsetYMax", [("HMAX", "HeightMax"), ("H", "HeightReg")], "HMAX - H",
             "Largest vertical offset possible at the current height.")
m.boolean(C, "VntCenterX", "Centers the region of interest horizontally. While enabled, OffsetX is computed by the device and cannot be changed.",
          vis="Expert", default=False)
m.swissknife(C, "VntOffsetXLocked", [("CX", "VntCenterXReg")], "CX <> 0", "OffsetX is locked while VntCenterX is enabled.")
m.boolean(C, "VntCenterY", "Centers the region of interest vertically. While enabled, OffsetY is computed by the device and cannot be changed.",
          vis="Expert", default=False)
m.swissknife(C, "VntOffsetYLocked", [("CY", "VntCenterYReg")], "CY <> 0", "OffsetY is locked while VntCenterY is enabled.")

HB = "VntHighBitDepthAvailable"
CP = "VntColorProcessingAvailable"
PIXEL_FORMATS = [
    E("Mono8", 0x01080001, "Monochrome, 8 bits per pixel."),
    E("Mono10", 0x01100003, "Monochrome, 10 bits per pixel in 16-bit containers."),
    E("Mono10p", 0x010A0046, "Monochrome, 10 bits per pixel, packed."),
    E("Mono12", 0x01100005, "Monochrome, 12 bits per pixel in 16-bit containers.", avail=HB),
    E("Mono12p", 0x010C0047, "Monochrome, 12 bits per pixel, packed.", avail=HB),
    E("Mono16", 0x01100007, "Monochrome, 16 bits per pixel.", avail=HB),
    E("BayerRG8", 0x01080009, "Bayer RG pattern, 8 bits per pixel."),
    E("BayerGB8", 0x0108000A, "Bayer GB pattern, 8 bits per pixel."),
    E("BayerGR8", 0x01080008, "Bayer GR pattern, 8 bits per pixel."),
    E("BayerBG8", 0x0108000B, "Bayer BG pattern, 8 bits per pixel."),
    E("BayerRG10", 0x0110000D, "Bayer RG pattern, 10 bits per pixel in 16-bit containers."),
    E("BayerRG10p", 0x010A0058, "Bayer RG pattern, 10 bits per pixel, packed."),
    E("BayerRG12", 0x01100011, "Bayer RG pattern, 12 bits per pixel in 16-bit containers.", avail=HB),
    E("BayerRG12p", 0x010C0059, "Bayer RG pattern, 12 bits per pixel, packed.", avail=HB),
    E("BayerGB12", 0x01100012, "Bayer GB pattern, 12 bits per pixel in 16-bit containers.", avail=HB),
    E("BayerGB12p", 0x010C0055, "Bayer GB pattern, 12 bits per pixel, packed.", avail=HB),
    E("BayerGR12", 0x01100010, "Bayer GR pattern, 12 bits per pixel in 16-bit containers.", avail=HB),
    E("BayerGR12p", 0x010C0057, "Bayer GR pattern, 12 bits per pixel, packed.", avail=HB),
    E("BayerBG12", 0x01100013, "Bayer BG pattern, 12 bits per pixel in 16-bit containers.", avail=HB),
    E("BayerBG12p", 0x010C0053, "Bayer BG pattern, 12 bits per pixel, packed.", avail=HB),
    E("RGB8", 0x02180014, "Red-green-blue, 8 bits per component, processed in the camera.", avail=CP),
    E("BGR8", 0x02180015, "Blue-green-red, 8 bits per component, processed in the camera.", avail=CP),
    E("YCbCr422_8", 0x0210003B, "YCbCr 4:2:2, 8 bits per component, processed in the camera.", display="YCbCr 4:2:2 8", avail=CP),
]
m.enum(C, "PixelFormat", "Format of the pixels provided by the device. Some formats are unavailable in some sensor modes (VntSensorMode).",
       PIXEL_FORMATS, locked=LOCK_IMG, default="Mono8")
m.swissknife(C, HB, [("MODE", "VntSensorModeReg")], "MODE <> 1",
             "12- and 16-bit pixel formats are not available in the HighSpeed sensor mode.")
m.swissknife(C, CP, [("MODE", "VntSensorModeReg")], "MODE <> 1",
             "Color-processed pixel formats are not available in the HighSpeed sensor mode.")
m.enum(C, "PixelSize", "Total size in bits of a pixel of the image, derived from PixelFormat.",
       [E("Bpp8", 8, "8 bits per pixel."), E("Bpp10", 10, "10 bits per pixel."), E("Bpp12", 12, "12 bits per pixel."),
        E("Bpp16", 16, "16 bits per pixel."), E("Bpp24", 24, "24 bits per pixel.")],
       swiss="VntPixelSizeCalc", vis="Expert")
m.swissknife(C, "VntPixelSizeCalc", [("PF", "PixelFormatReg")], "(PF >> 16) & 0xFF",
             "Bits per pixel as encoded in the pixel format code.")
m.enum(C, "PixelColorFilter", "Type of color filter applied to the image, derived from PixelFormat.",
       [E("None", 0, "No color filter."), E("BayerRG", 1, "Bayer red-green filter."),
        E("BayerGB", 2, "Bayer green-blue filter."), E("BayerGR", 3, "Bayer green-red filter."),
        E("BayerBG", 4, "Bayer blue-green filter.")],
       swiss="VntPixelColorFilterCalc", vis="Expert")
BAYER = [(1, [0x01080009, 0x0110000D, 0x010A0058, 0x01100011, 0x010C0059]),
         (2, [0x0108000A, 0x01100012, 0x010C0055]),
         (3, [0x01080008, 0x01100010, 0x010C0057]),
         (4, [0x0108000B, 0x01100013, 0x010C0053])]
m.swissknife(C, "VntPixelColorFilterCalc", [("PF", "PixelFormatReg")],
             "".join("(" + " || ".join("(PF = 0x%08X)" % b for b in codes) + ") ? %d : " % (n)
                     for n, codes in BAYER) + "0",
             "The PixelColorFilter entry of the pixel format's Bayer pattern, 0 for formats without one.")
m.integer(C, "PixelDynamicRangeMin", "Minimum value that can be returned for a pixel component.", value=0, imposed="RO", vis="Expert")
m.integer(C, "PixelDynamicRangeMax", "Maximum value that can be returned for a pixel component, derived from PixelFormat.",
          swiss="VntPixelDynamicRangeMaxCalc", min=255, max=65535, vis="Expert")
P10 = [0x01100003, 0x010A0046, 0x0110000D, 0x010A0058]
P12 = [0x01100005, 0x010C0047, 0x01100011, 0x010C0059, 0x01100012, 0x010C0055, 0x01100010, 0x010C0057,
       0x01100013, 0x010C0053]
m.swissknife(C, "VntPixelDynamicRangeMaxCalc", [("PF", "PixelFormatReg")],
             "(" + " || ".join("(PF = 0x%08X)" % b for b in P10) + ") ? 1023 : ((" +
             " || ".join("(PF = 0x%08X)" % b for b in P12) + ") ? 4095 : ((PF = 0x01100007) ? 65535 : 255))",
             "Largest pixel component value of the current pixel format.")
m.boolean(C, "ReverseX", "Flips the image horizontally.", default=False, vis="Expert")
m.boolean(C, "ReverseY", "Flips the image vertically.", default=False, vis="Expert")
m.enum(C, "TestPatternGeneratorSelector", "Selects which test pattern generator is controlled by TestPattern.",
       [E("Sensor", 0, "Test pattern generated by the sensor."), E("Region0", 1, "Test pattern inserted in the image processing.")],
       vis="Guru", default="Sensor")
m.enum(C, "TestPattern", "Selects the test pattern generated instead of the image from the sensor.",
       [E("Off", 0, "Image from the sensor: a colour gradient crossed by a bright bar that moves 8 sensor columns a frame."), E("Black", 1, "All pixels black."), E("White", 2, "All pixels white."),
        E("GreyHorizontalRamp", 3, "Grey ramp from left to right, one full ramp every 1024 sensor columns."),
        E("GreyVerticalRamp", 4, "Grey ramp from top to bottom, one full ramp every 1024 sensor rows."),
        E("GreyDiagonalRampMoving", 5, "Diagonal grey ramp that moves 4 sensor pixels a frame."),
        E("ColorBar", 6, "Vertical bars 128 sensor columns wide: white, yellow, cyan, green, magenta, red, blue, black.")],
       sel="TestPatternGeneratorSelector", vis="Expert", default="Off")

C = "VntBinningControl"
m.category(C, "ImageFormatControl", "Binning combines adjacent sensor pixels into one image pixel, which increases sensitivity and frame rate and reduces resolution.",
           display="Binning", vis="Expert")
m.swissknife(C, "VntBinningHorizontalAvailable", [("DH", "DecimationHorizontalReg")], "DH = 1",
             "Horizontal binning cannot be combined with horizontal decimation.")
m.swissknife(C, "VntBinningVerticalAvailable", [("DV", "DecimationVerticalReg")], "DV = 1",
             "Vertical binning cannot be combined with vertical decimation.")
m.integer(C, "BinningHorizontal", "Number of horizontal sensor pixels combined into one image pixel. Width and OffsetX are expressed in binned pixels.",
          min=1, max=4, inc=1, locked=LOCK_IMG, avail="VntBinningHorizontalAvailable", vis="Expert", default=1)
m.enum(C, "BinningHorizontalMode", "How the values of horizontally binned pixels are combined.",
       [E("Sum", 0, "The pixel values are added; the image gets brighter."),
        E("Average", 1, "The pixel values are averaged; the brightness stays the same.")], vis="Expert", default="Sum")
m.integer(C, "BinningVertical", "Number of vertical sensor pixels combined into one image pixel. Height and OffsetY are expressed in binned pixels.",
          min=1, max=4, inc=1, locked=LOCK_IMG, avail="VntBinningVerticalAvailable", vis="Expert", default=1)
m.enum(C, "BinningVerticalMode", "How the values of vertically binned pixels are combined.",
       [E("Sum", 0, "The pixel values are added; the image gets brighter."),
        E("Average", 1, "The pixel values are averaged; the brightness stays the same.")], vis="Expert", default="Sum")

C = "VntDecimationControl"
m.category(C, "ImageFormatControl", "Decimation (subsampling) skips sensor columns or rows to reduce the image size and increase the frame rate.",
           display="Decimation", vis="Expert")
m.swissknife(C, "VntDecimationHorizontalAvailable", [("BH", "BinningHorizontalReg")], "BH = 1",
             "Horizontal decimation cannot be combined with horizontal binning.")
m.swissknife(C, "VntDecimationVerticalAvailable", [("BV", "BinningVerticalReg")], "BV = 1",
             "Vertical decimation cannot be combined with vertical binning.")
m.integer(C, "DecimationHorizontal", "Horizontal subsampling factor: only every n-th column is transmitted.",
          min=1, max=4, inc=1, locked=LOCK_IMG, avail="VntDecimationHorizontalAvailable", vis="Expert", default=1)
m.enum(C, "DecimationHorizontalMode", "How horizontally decimated columns are handled.",
       [E("Discard", 0, "Skipped columns are discarded.")], vis="Guru", default="Discard")
m.integer(C, "DecimationVertical", "Vertical subsampling factor: only every n-th row is transmitted.",
          min=1, max=4, inc=1, locked=LOCK_IMG, avail="VntDecimationVerticalAvailable", vis="Expert", default=1)
m.enum(C, "DecimationVerticalMode", "How vertically decimated rows are handled.",
       [E("Discard", 0, "Skipped rows are discarded.")], vis="Guru", default="Discard")

C = "VntScalingControl"
m.category(C, "ImageFormatControl", "Digital scaling of the image inside the camera.", display="Scaling", vis="Expert")
m.float(C, "VntScalingFactor", "Digital scaling factor applied to the region of interest. 1.0 means no scaling, 0.5 halves width and height.",
        min=0.125, max=1.0, repr="Linear", notation="Fixed", precision=3, locked=LOCK_IMG, vis="Expert",
        display="Scaling Factor", default=1.0)
m.enum(C, "VntScalingAlgorithm", "Interpolation method used for digital scaling.",
       [E("NearestNeighbor", 0, "Fast, lowest quality."), E("Bilinear", 1, "Bilinear interpolation."),
        E("Bicubic", 2, "Bicubic interpolation, best quality.")], vis="Guru", default="Bilinear")

# ------------------------------------------------------------------ VntSensorControl
C = "VntSensorControl"
m.category(C, "Root", "Vanto-specific control of the operating mode of the image sensor.", display="Sensor Control", vis="Expert")
m.enum(C, "VntSensorMode",
       "Operating mode of the sensor. HighSpeed shortens the readout but limits the bit depth to 10 bits; HighDynamicRange extends the dynamic range at a lower frame rate.",
       [E("Standard", 0, "Standard readout with 12-bit digitization."),
        E("HighSpeed", 1, "Fast readout with 10-bit digitization; 12/16-bit and color-processed formats are unavailable."),
        E("HighDynamicRange", 2, "Dual-gain readout with extended dynamic range.")],
       locked=LOCK_IMG, vis="Expert", default="Standard")
m.enum(C, "VntSensorBitDepth", "Bit depth of the analog-to-digital conversion in the current sensor mode.",
       [E("Bpp10", 10, "10-bit conversion."), E("Bpp12", 12, "12-bit conversion.")], swiss="VntSensorBitDepthCalc", vis="Expert")
m.swissknife(C, "VntSensorBitDepthCalc", [("MODE", "VntSensorModeReg")], "(MODE = 1) ? 10 : 12",
             "10 bits in HighSpeed mode, 12 bits otherwise.")
m.float(C, "VntSensorLineTime", "Time needed to read out one sensor row in the current sensor mode.",
        swiss="VntSensorLineTimeCalc", min=0.0, max=1000.0, unit=US, notation="Fixed", precision=2, vis="Guru")
m.swissknife(C, "VntSensorLineTimeCalc", [("MODE", "VntSensorModeReg")], "(MODE = 1) ? 7.5 : ((MODE = 2) ? 25.0 : 12.5)",
             "Row readout time per sensor mode.", integer=False)
m.float(C, "VntSensorReadoutTime", "Time needed to read out one image from the sensor. It depends on Height, vertical binning and the sensor mode and limits the frame rate.",
        swiss="VntSensorReadoutTimeCalc", min=0.0, max=1000000.0, unit=US, notation="Fixed", precision=1, vis="Expert")
m.swissknife(C, "VntSensorReadoutTimeCalc", [("H", "HeightReg"), ("BV", "BinningVerticalReg"), ("LT", "VntSensorLineTime")],
             "H * BV * LT + 50.0", "Rows read from the sensor times the row time plus a fixed overhead.", integer=False)
m.enum(C, "VntSensorConversionGain", "Conversion gain of the sensor pixels. High gives less noise in low light, Low gives a larger full-well capacity.",
       [E("Low", 0, "Low conversion gain, large full-well capacity."), E("High", 1, "High conversion gain, low read noise.")],
       vis="Expert", default="Low")
m.boolean(C, "VntSensorBlackLevelClampEnable", "Enables the automatic black level clamping of the sensor.", vis="Guru", default=True)

# -------------------------------------------------------------- AcquisitionControl
C = "AcquisitionControl"
m.category(C, "Root", "Features that control image acquisition, triggering and exposure.")
m.enum(C, "AcquisitionMode", "Sets the acquisition mode of the device: how many frames are captured after AcquisitionStart.",
       [E("SingleFrame", 0, "One frame is captured."), E("MultiFrame", 1, "AcquisitionFrameCount frames are captured."),
        E("Continuous", 2, "Frames are captured until AcquisitionStop.")], locked=LOCK_IMG, default="Continuous")
m.command(C, "AcquisitionStart", "Starts the acquisition of the device.")
m.command(C, "AcquisitionStop", "Stops the acquisition of the device at the end of the current frame.")
m.command(C, "AcquisitionAbort", "Aborts the acquisition immediately; the current frame is discarded.", vis="Expert")
m.swissknife(C, "VntFrameCountAvailable", [("M", "AcquisitionModeReg")], "M = 1",
             "AcquisitionFrameCount only applies to the MultiFrame acquisition mode.")
m.integer(C, "FrameCounter", "Number of frames the device has sent since the acquisition started.",
          access="RO", volatile=True, length=8, min=0, max=9223372036854775807, repr="PureNumber", vis="Expert",
          default=0)
m.integer(C, "AcquisitionFrameCount", "Number of frames to acquire in MultiFrame acquisition mode.",
          min=1, max=65535, avail="VntFrameCountAvailable", vis="Expert", default=1)
m.integer(C, "AcquisitionBurstFrameCount", "Number of frames acquired for each FrameBurstStart trigger.",
          min=1, max=255, vis="Expert", default=1)
m.boolean(C, "AcquisitionFrameRateEnable", "Enables AcquisitionFrameRate to limit the frame rate of the device.", default=False)
m.float(C, "AcquisitionFrameRate",
        "Frame rate at which frames are captured when free running. Only available when AcquisitionFrameRateEnable is true.",
        min=0.1, max=500.0, unit="Hz", notation="Fixed", precision=2, avail="AcquisitionFrameRateEnableReg", default=30.0)
m.float(C, "AcquisitionFrameRateAbs",
        "Older name of AcquisitionFrameRate, kept for software written before the standard name. Both set the same frame rate.",
        tip="Older name of AcquisitionFrameRate.", pvalue="AcquisitionFrameRateReg", min=0.1, max=500.0, unit="Hz",
        avail="AcquisitionFrameRateEnableReg")
m.float(C, "VntResultingFrameRate",
        "Frame rate the device achieves with the current settings, limited by exposure time, sensor readout and AcquisitionFrameRate.",
        swiss="VntResultingFrameRateCalc", min=0.0, max=100000.0, unit="Hz", notation="Fixed", precision=2, vis="Expert", display="Resulting Frame Rate")
m.swissknife(C, "VntResultingFrameRateCalc", [("EXPO", "ExposureTimeReg"), ("R", "VntSensorReadoutTime"),
                                              ("EN", "AcquisitionFrameRateEnableReg"), ("FR", "AcquisitionFrameRateReg")],
             "((EN <> 0) && (FR < MAXRATE)) ? FR : MAXRATE",
             "Smallest of the exposure-limited rate, the readout-limited rate and the configured frame rate.",
             expressions=[("MAXRATE", "(EXPO > R) ? (1000000 / EXPO) : (1000000 / R)")], integer=False)
m.enum(C, "AcquisitionStatusSelector", "Selects the internal acquisition signal to read with AcquisitionStatus.",
       [E("AcquisitionTriggerWait", 0, "The device waits for an acquisition trigger."),
        E("AcquisitionActive", 1, "The acquisition is active."),
        E("AcquisitionTransfer", 2, "The device transfers an acquisition."),
        E("FrameTriggerWait", 3, "The device waits for a frame trigger."),
        E("FrameActive", 4, "A frame is being captured."),
        E("ExposureActive", 5, "The sensor is exposing.")], vis="Expert", default="FrameTriggerWait")
m.boolean(C, "AcquisitionStatus", "State of the acquisition signal selected by AcquisitionStatusSelector.",
          sel="AcquisitionStatusSelector", access="RO", volatile=True, vis="Expert", default=False)
m.integer(C, "VntAcquisitionActive", "1 while an acquisition is running. Width, Height, PixelFormat and other image format features are locked while it is 1.",
          access="RO", volatile=True, min=0, max=1, repr="Boolean", vis="Expert", default=0)
m.swissknife(C, LOCK_IMG, [("ACQ", "VntAcquisitionActiveReg"), ("TLP", "TLParamsLockedReg")],
             "(ACQ <> 0) || (TLP <> 0)", "Image format features are locked while an acquisition is running.")
m.enum(C, "TriggerSelector", "Selects the trigger to configure with the other trigger features.",
       [E("AcquisitionStart", 0, "Trigger that starts the acquisition."),
        E("AcquisitionEnd", 1, "Trigger that ends the acquisition."),
        E("FrameStart", 2, "Trigger that starts the capture of one frame."),
        E("FrameBurstStart", 3, "Trigger that starts the capture of a burst of frames."),
        E("ExposureStart", 4, "Trigger that starts the exposure."),
        E("ExposureActive", 5, "Trigger that controls the exposure duration.", avail="VntTriggerWidthMode")],
       default="FrameStart")
m.swissknife(C, "VntTriggerWidthMode", [("EM", "ExposureModeReg")], "EM = 2",
             "The ExposureActive trigger is only available when ExposureMode is TriggerWidth.")
m.enum(C, "TriggerMode", "Controls whether the selected trigger is active.", onoff(), sel="TriggerSelector", default="Off")
m.command(C, "TriggerSoftware", "Generates an internal trigger for the selected trigger when TriggerSource is Software.",
          sel="TriggerSelector", noindex=True)
SOURCES = [("Line0", 0), ("Line2", 2), ("Line3", 3), ("Software", 10), ("SoftwareSignal0", 11), ("SoftwareSignal1", 12),
           ("SoftwareSignal2", 13), ("Counter0End", 20), ("Counter1End", 21), ("Timer0End", 30), ("Timer1End", 31),
           ("Action0", 40), ("Action1", 41)]
m.enum(C, "TriggerSource", "Source of the signal that activates the selected trigger.",
       [E(n, v) for n, v in SOURCES], sel="TriggerSelector", default="Software")
m.enum(C, "TriggerActivation", "Signal edge or level that activates the selected trigger.", edges(True),
       sel="TriggerSelector", vis="Expert", default="RisingEdge")
m.enum(C, "TriggerOverlap", "Controls whether a trigger is accepted while the previous frame is still being read out.",
       [E("Off", 0, "No overlap: triggers during readout are ignored."),
        E("ReadOut", 1, "A trigger is accepted while the previous frame is read out."),
        E("PreviousFrame", 2, "A trigger is accepted at any time during the previous frame.")],
       sel="TriggerSelector", vis="Expert", default="ReadOut")
m.float(C, "TriggerDelay", "Delay between the trigger signal and the activation of the trigger.",
        sel="TriggerSelector", min=0.0, max=1000000.0, unit=US, notation="Fixed", precision=1, vis="Expert", default=0.0)
m.integer(C, "TriggerDivider", "Only every n-th trigger signal activates the selected trigger.",
          sel="TriggerSelector", min=1, max=256, conv=("FROM - 1", "TO + 1"), vis="Expert", default=1)
m.enum(C, "ExposureMode", "Sets the operation mode of the exposure.",
       [E("Timed", 1, "The exposure duration is set by ExposureTime."),
        E("TriggerWidth", 2, "The exposure lasts as long as the ExposureActive trigger signal.")],
       vis="Expert", default="Timed")
m.swissknife(C, "VntExposureTimeAvailable", [("EM", "ExposureModeReg")], "EM = 1",
             "ExposureTime only applies to the Timed exposure mode.")
m.swissknife(C, "VntExposureTimeLocked", [("EA", "ExposureAutoReg")], "EA <> 0",
             "ExposureTime is controlled by the device while ExposureAuto is not Off.")
m.enum(C, "ExposureTimeMode",
       "Sets the range of the exposure time. Not implemented by this model, whose sensor has a single range; the feature belongs to the description of the camera family.",
       [E("Standard", 0, plain=True), E("UltraShort", 1, plain=True)], tip="Sets the range of the exposure time.",
       value=0, impl="VntUltraShortExposureImplemented", vis="Expert")
m.float(C, "ExposureTime",
        "Exposure time of the sensor. Read-only while ExposureAuto is Once or Continuous, because the device then controls it.",
        min=20.0, max=10000000.0, unit=US, repr="Logarithmic", notation="Fixed", precision=1, volatile=True, poll=500,
        locked="VntExposureTimeLocked", avail="VntExposureTimeAvailable", default=10000.0)
m.float(C, "ExposureTimeAbs",
        "Older name of ExposureTime, kept for software written before the standard name. Both set the same exposure time.",
        tip="Older name of ExposureTime.", pvalue="ExposureTimeReg", min=20.0, max=10000000.0, unit=US,
        avail="VntExposureTimeAvailable", locked="VntExposureTimeLocked")
m.enum(C, "ExposureAuto", "Controls the automatic exposure: Off, Once (adjust once and switch back to Off) or Continuous.",
       auto(), volatile=True, poll=1000, default="Off")
m.boolean(C, "VntFrameTimeoutEnable", "Enables the frame timeout: a frame that is not complete after VntFrameTimeout is discarded.",
          vis="Guru", default=False)
m.float(C, "VntFrameTimeout", "Time after which an incomplete frame is discarded.", min=1000.0, max=10000000.0, unit=US,
        avail="VntFrameTimeoutEnableReg", vis="Guru", default=1000000.0)
m.float(C, "VntExposureOverlapTimeMax", "Maximum time the exposure of the next frame may overlap the readout of the current frame.",
        min=0.0, max=100000.0, unit=US, vis="Guru", default=0.0)

# ------------------------------------------------------------------ AnalogControl
C = "AnalogControl"
m.category(C, "Root", "Features that control the analog and digital amplification and the black level of the image.")
m.enum(C, "GainSelector", "Selects which gain is controlled by Gain.",
       [E("All", 0, "Overall gain (analog and digital)."), E("AnalogAll", 1, "Analog gain of all channels."),
        E("DigitalAll", 2, "Digital gain of all channels.")], default="All")
m.swissknife(C, "VntGainLocked", [("GA", "GainAutoReg")], "GA <> 0",
             "Gain is controlled by the device while GainAuto is not Off.")
m.float(C, "Gain", "Gain applied to the image. Read-only while GainAuto is Once or Continuous.",
        sel="GainSelector", min=0.0, max=24.0, unit="dB", notation="Fixed", precision=2, locked="VntGainLocked",
        volatile=True, poll=500, default=0.0)
m.enum(C, "GainAuto", "Controls the automatic gain: Off, Once or Continuous.", auto(), volatile=True, poll=1000,
       default="Off")
m.integer(C, "GainRaw",
          "Gain in tenths of a decibel: the older, raw form of Gain, kept for software written before the standard name. Both set the same gain.",
          tip="Gain in tenths of a decibel: the older, raw form of Gain.", pvalue="GainRawConv", min=0, max=240,
          locked="VntGainLocked", streamable=True, reserve=0x10,
          extra=("GainRawConv", "\n".join(['\t<IntConverter Name="GainRawConv" NameSpace="Custom">',
                       "\t\t<ToolTip>Converts between GainRaw and the gain in decibels.</ToolTip>",
                       "\t\t<Visibility>Invisible</Visibility>",
                       "\t\t<FormulaTo>FROM / 10</FormulaTo>",
                       "\t\t<FormulaFrom>TRUNC(TO * 10 + 0.5)</FormulaFrom>",
                       "\t\t<pValue>GainReg</pValue>",
                       "\t</IntConverter>"])))
m.enum(C, "BlackLevelSelector", "Selects which black level is controlled by BlackLevel.",
       [E("All", 0, "Black level of all channels.")], vis="Expert", default="All")
m.float(C, "BlackLevel", "Black level (offset) added to the pixel values.", sel="BlackLevelSelector",
        min=0.0, max=64.0, unit="DN", notation="Fixed", precision=2, vis="Expert", default=0.0)
m.boolean(C, "VntGammaEnable", "Enables the gamma correction set by Gamma.", vis="Expert", default=False)
m.float(C, "Gamma", "Gamma correction of the pixel intensity. Only available when VntGammaEnable is true.",
        min=0.25, max=4.0, repr="PureNumber", notation="Fixed", precision=2, avail="VntGammaEnableReg", vis="Expert", default=1.0)
m.enum(C, "BalanceRatioSelector", "Selects which color channel is controlled by BalanceRatio.",
       [E("Red", 0, "Red channel."), E("Green", 1, "Green channel."), E("Blue", 2, "Blue channel.")], vis="Expert", default="Red")
m.swissknife(C, "VntBalanceRatioLocked", [("BWA", "BalanceWhiteAutoReg")], "BWA <> 0",
             "BalanceRatio is controlled by the device while BalanceWhiteAuto is not Off.")
m.float(C, "BalanceRatio", "Ratio applied to the selected color channel for white balancing. Read-only while BalanceWhiteAuto is not Off.",
        sel="BalanceRatioSelector", min=0.0, max=8.0, repr="PureNumber", notation="Fixed", precision=3,
        locked="VntBalanceRatioLocked", volatile=True, poll=1000, vis="Expert",
        default={"Red": 1.0, "Green": 1.0, "Blue": 1.0})
m.enum(C, "BalanceWhiteAuto", "Controls the automatic white balance: Off, Once or Continuous.", auto(), volatile=True,
       poll=1000, default="Off")
m.integer(C, "VntDigitalShift", "Shifts the pixel values left by the given number of bits, which multiplies the brightness by a power of two.",
          min=0, max=4, masked=(0, 3), vis="Expert", default=0)

# --------------------------------------------------------------- VntAutoFunctionControl
C = "VntAutoFunctionControl"
m.category(C, "Root", "Vanto-specific parameters of the automatic exposure, gain and white balance functions.",
           display="Auto Function Control", vis="Expert")
m.float(C, "VntAutoTargetBrightness", "Average brightness the automatic exposure and gain functions aim for, as a fraction of the maximum pixel value.",
        min=0.0, max=1.0, repr="PureNumber", notation="Fixed", precision=3, vis="Expert", default=0.5)
m.enum(C, "VntAutoFunctionProfile", "Strategy used when exposure time and gain are adjusted automatically at the same time.",
       [E("MinimizeGain", 0, "Increase the exposure time first to keep noise low."),
        E("MinimizeExposureTime", 1, "Increase the gain first to keep motion blur low.")], vis="Expert", default="MinimizeGain")
m.float(C, "VntAutoExposureTimeLowerLimit", "Lowest exposure time the automatic exposure may set.",
        min=20.0, max=10000000.0, unit=US, repr="Logarithmic", vis="Expert", default=100.0)
m.float(C, "VntAutoExposureTimeUpperLimit", "Highest exposure time the automatic exposure may set.",
        min=20.0, max=10000000.0, unit=US, repr="Logarithmic", vis="Expert", default=100000.0)
m.float(C, "VntAutoGainLowerLimit", "Lowest gain the automatic gain may set.", min=0.0, max=24.0, unit="dB", vis="Expert", default=0.0)
m.float(C, "VntAutoGainUpperLimit", "Highest gain the automatic gain may set.", min=0.0, max=24.0, unit="dB", vis="Expert", default=24.0)

C = "VntAutoFunctionROIControl"
m.category(C, "VntAutoFunctionControl", "Regions of the image evaluated by the automatic functions.", display="Auto Function ROI", vis="Expert")
ROIS = [E("ROI1", 0, "Auto function region 1."), E("ROI2", 1, "Auto function region 2.")]
m.enum(C, "VntAutoFunctionROISelector", "Selects the auto function region to configure.", ROIS, vis="Expert", default="ROI1")
m.integer(C, "VntAutoFunctionROIOffsetX", "Horizontal offset of the selected auto function region.", sel="VntAutoFunctionROISelector",
          min=0, max=1904, inc=16, unit="px", vis="Expert", default=0)
m.integer(C, "VntAutoFunctionROIOffsetY", "Vertical offset of the selected auto function region.", sel="VntAutoFunctionROISelector",
          min=0, max=1198, inc=2, unit="px", vis="Expert", default=0)
m.integer(C, "VntAutoFunctionROIWidth", "Width of the selected auto function region.", sel="VntAutoFunctionROISelector",
          min=16, max=1920, inc=16, unit="px", vis="Expert", default=1920)
m.integer(C, "VntAutoFunctionROIHeight", "Height of the selected auto function region.", sel="VntAutoFunctionROISelector",
          min=2, max=1200, inc=2, unit="px", vis="Expert", default=1200)
m.boolean(C, "VntAutoFunctionROIUseBrightness", "Uses the selected region for the automatic exposure and gain.",
          sel="VntAutoFunctionROISelector", vis="Expert", default={"ROI1": True, "ROI2": False})
m.boolean(C, "VntAutoFunctionROIUseWhiteBalance", "Uses the selected region for the automatic white balance.",
          sel="VntAutoFunctionROISelector", vis="Expert", default={"ROI1": False, "ROI2": True})
m.boolean(C, "VntAutoFunctionROIHighlight", "Draws the outline of the selected region into the image.",
          sel="VntAutoFunctionROISelector", vis="Guru", default=False)

# ------------------------------------------------------------ VntConsistentLightControl
C = "VntConsistentLightControl"
m.category(C, "Root", "Vanto-specific features that keep the image quality consistent when the lighting changes.",
           display="Consistent Light Control", vis="Expert")
m.enum(C, "VntIlluminantPreset", "Color correction preset matching the main light source of the scene.",
       [E("Off", 0, "No illuminant-specific correction."), E("Daylight", 1, "Natural daylight."),
        E("Overcast", 2, "Overcast sky."), E("Incandescent", 3, "Incandescent or halogen lamps."),
        E("Fluorescent", 4, "Fluorescent tubes."), E("WhiteLED", 5, "White LED lighting.")],
       vis="Expert", default="Off")
m.enum(C, "VntFlickerCompensation", "Adapts the exposure to the mains frequency to avoid brightness flicker under artificial light.",
       [E("Off", 0, "No compensation."), E("Mains50Hz", 1, "Compensate 50 Hz mains flicker.", display="50 Hz"),
        E("Mains60Hz", 2, "Compensate 60 Hz mains flicker.", display="60 Hz")], vis="Expert", default="Off")
m.float(C, "VntAutoExposureDampening", "How slowly the automatic exposure and gain react to brightness changes. 0 reacts immediately, values near 1 react slowly.",
        min=0.0, max=1.0, repr="PureNumber", notation="Fixed", precision=2, vis="Expert", default=0.7)
m.float(C, "VntAutoWhiteBalanceDampening", "How slowly the automatic white balance reacts to color changes.",
        min=0.0, max=1.0, repr="PureNumber", notation="Fixed", precision=2, vis="Expert", default=0.5)
m.integer(C, "VntAutoFunctionUpdateInterval", "Number of frames between two adjustments of the automatic functions.",
          min=1, max=30, unit="frames", vis="Guru", default=1)
m.float(C, "VntBrightnessStabilityTolerance", "Deviation from the target brightness that the automatic functions tolerate before they react.",
        min=0.0, max=20.0, unit="%", vis="Guru", default=2.0)

# ------------------------------------------------------------- VntImageQualityControl
C = "VntImageQualityControl"
m.category(C, "Root", "Vanto-specific image processing that improves image quality.", display="Image Quality Control", vis="Expert")
m.enum(C, "VntDemosaicingMode", "Method used to interpolate color images from the Bayer sensor.",
       [E("Simple", 0, "Fast bilinear interpolation."), E("Advanced", 1, "Edge-aware interpolation with fewer color artifacts.")],
       vis="Expert", default="Simple")
C = "VntSharpeningControl"
m.category(C, "VntImageQualityControl", "Sharpening of edges in the image.", display="Sharpening", vis="Expert")
m.boolean(C, "VntSharpeningEnable", "Enables sharpening.", vis="Expert", default=False)
m.float(C, "VntSharpeningLevel", "Strength of the sharpening.", min=0.0, max=2.0, repr="PureNumber", notation="Fixed",
        precision=2, avail="VntSharpeningEnableReg", vis="Expert", default=1.0)
m.integer(C, "VntSharpeningThreshold", "Edges with a contrast below this threshold are not sharpened, to avoid amplifying noise.",
          min=0, max=255, avail="VntSharpeningEnableReg", vis="Guru", default=8)
C = "VntNoiseReductionControl"
m.category(C, "VntImageQualityControl", "Reduction of image noise.", display="Noise Reduction", vis="Expert")
m.boolean(C, "VntNoiseReductionEnable", "Enables noise reduction.", vis="Expert", default=False)
m.enum(C, "VntNoiseReductionMode", "Kind of noise reduction.",
       [E("Spatial", 0, "Filters within one frame."), E("Temporal", 1, "Averages over several frames; best for static scenes."),
        E("SpatioTemporal", 2, "Combination of both.")], avail="VntNoiseReductionEnableReg", vis="Expert", default="Spatial")
m.float(C, "VntNoiseReductionStrength", "Strength of the noise reduction.", min=0.0, max=1.0, repr="PureNumber",
        notation="Fixed", precision=2, avail="VntNoiseReductionEnableReg", vis="Expert", default=0.5)
m.swissknife(C, "VntTemporalFilterAvailable", [("EN", "VntNoiseReductionEnableReg"), ("MODE", "VntNoiseReductionModeReg")],
             "(EN <> 0) && (MODE <> 0)", "The temporal filter length only applies to temporal noise reduction modes.")
m.integer(C, "VntTemporalFilterFrameCount", "Number of frames averaged by the temporal noise reduction.",
          min=2, max=8, unit="frames", avail="VntTemporalFilterAvailable", vis="Expert", default=4)
C = "VntDefectPixelCorrection"
m.category(C, "VntImageQualityControl", "Correction of defective (hot or dead) pixels.", display="Defect Pixel Correction", vis="Expert")
m.enum(C, "VntDefectPixelCorrectionMode", "Selects how defective pixels are corrected.",
       [E("Off", 0, "No correction."), E("Static", 1, "Pixels from the stored defect list are corrected."),
        E("Dynamic", 2, "Pixels that differ strongly from their neighbours are corrected."),
        E("StaticAndDynamic", 3, "Both methods.")], vis="Expert", default="Static")
m.swissknife(C, "VntDynamicCorrectionActive", [("MODE", "VntDefectPixelCorrectionModeReg")], "MODE >= 2",
             "The threshold only applies to dynamic correction.")
m.integer(C, "VntDefectPixelThreshold", "Deviation from the neighbouring pixels above which a pixel is considered defective.",
          min=0, max=4095, avail="VntDynamicCorrectionActive", vis="Expert", default=512)
m.integer(C, "VntDefectPixelCount", "Number of entries in the stored defect pixel list.", access="RO", min=0, max=256,
          vis="Expert", default=4)
m.integer(C, "VntDefectPixelIndex", "Selects an entry of the stored defect pixel list.", min=0, max=255, vis="Guru", default=0)
DEFECTS = [(117, 44), (902, 611), (1533, 87), (1760, 1102)]
m.integer(C, "VntDefectPixelX", "Column of the selected defect pixel.", sel="VntDefectPixelIndex", min=0, max=1919, unit="px",
          vis="Guru", default=lambda i: DEFECTS[i][0] if i < len(DEFECTS) else None)
m.integer(C, "VntDefectPixelY", "Row of the selected defect pixel.", sel="VntDefectPixelIndex", min=0, max=1199, unit="px",
          vis="Guru", default=lambda i: DEFECTS[i][1] if i < len(DEFECTS) else None)
m.command(C, "VntDefectPixelDetect", "Detects defective pixels with the lens covered and stores them in the defect list.", vis="Guru")
C = "VntFlatFieldCorrection"
m.category(C, "VntImageQualityControl", "Correction of uneven illumination and pixel sensitivity (shading).",
           display="Flat Field Correction", vis="Expert")
m.boolean(C, "VntFlatFieldCorrectionEnable", "Enables the flat field correction.", vis="Expert", default=False)
m.command(C, "VntFlatFieldCorrectionCalibrate", "Calibrates the flat field correction. Point the camera at a uniform, bright surface first.",
          vis="Expert")
m.enum(C, "VntFlatFieldCorrectionStatus", "Calibration state of the flat field correction.",
       [E("NotCalibrated", 0, "No calibration data."), E("Calibrating", 1, "Calibration in progress."),
        E("Calibrated", 2, "Calibration data available.")], access="RO", volatile=True, vis="Expert", default="NotCalibrated")

# ----------------------------------------------------------------------- LUTControl
C = "LUTControl"
m.category(C, "Root", "Lookup table that maps pixel values to output values.", vis="Expert")
m.enum(C, "LUTSelector", "Selects which lookup table to control.", [E("Luminance", 0, "Lookup table applied to the luminance.")],
       vis="Expert", default="Luminance")
m.boolean(C, "LUTEnable", "Activates the selected lookup table.", sel="LUTSelector", vis="Expert", default=False)
m.integer(C, "LUTIndex", "Index of the lookup table entry to access with LUTValue. The table has 512 entries, one per 8 input values; values in between are interpolated.",
          min=0, max=4088, inc=8, vis="Guru", default=0)
m.integer(C, "LUTValue", "Output value of the lookup table entry selected by LUTIndex.", sel="LUTIndex",
          min=0, max=4095, vis="Guru", default=lambda i: i)

# ------------------------------------------------------------ ColorTransformationControl
C = "ColorTransformationControl"
m.category(C, "Root", "Color transformation (color correction matrix) applied to color pixel formats.", vis="Expert")
m.enum(C, "ColorTransformationSelector", "Selects which color transformation to control.",
       [E("RGBtoRGB", 0, "RGB to RGB color correction.", display="RGB to RGB"),
        E("RGBtoYUV", 1, "RGB to YUV conversion.", display="RGB to YUV")], vis="Expert", default="RGBtoRGB")
m.boolean(C, "ColorTransformationEnable", "Activates the selected color transformation.", sel="ColorTransformationSelector",
          vis="Expert", default={"RGBtoRGB": False, "RGBtoYUV": True})
CTV = [E("Gain%d%d" % (r, c), r * 3 + c, "Matrix coefficient row %d, column %d." % (r, c)) for r in range(3) for c in range(3)]
CTV += [E("Offset%d" % i, 9 + i, "Offset of output channel %d." % i) for i in range(3)]
m.enum(C, "ColorTransformationValueSelector", "Selects the coefficient of the color transformation matrix to access.", CTV,
       vis="Guru", default="Gain00")
m.float(C, "ColorTransformationValue", "Value of the selected coefficient of the color transformation matrix.",
        sel="ColorTransformationValueSelector", min=-8.0, max=8.0, repr="PureNumber", notation="Fixed", precision=4, vis="Guru",
        default={"Gain00": 1.0, "Gain11": 1.0, "Gain22": 1.0, "*": 0.0})
C = "VntColorAdjustmentControl"
m.category(C, "ColorTransformationControl", "Adjustment of hue and saturation of individual colors.", display="Color Adjustment", vis="Expert")
m.boolean(C, "VntColorAdjustmentEnable", "Enables the color adjustment.", vis="Expert", default=False)
m.enum(C, "VntColorAdjustmentSelector", "Selects the color to adjust.",
       [E("Red", 0), E("Yellow", 1), E("Green", 2), E("Cyan", 3), E("Blue", 4), E("Magenta", 5)], vis="Expert", default="Red")
m.float(C, "VntColorAdjustmentHue", "Hue shift of the selected color.", sel="VntColorAdjustmentSelector",
        min=-30.0, max=30.0, unit="°", notation="Fixed", precision=1, avail="VntColorAdjustmentEnableReg", vis="Expert", default=0.0)
m.float(C, "VntColorAdjustmentSaturation", "Saturation of the selected color. 1.0 leaves the color unchanged.",
        sel="VntColorAdjustmentSelector", min=0.0, max=2.0, repr="PureNumber", notation="Fixed", precision=2,
        avail="VntColorAdjustmentEnableReg", vis="Expert", default=1.0)

# ----------------------------------------------------------------- DigitalIOControl
C = "DigitalIOControl"
m.category(C, "Root", "Features that control the digital input and output lines of the device.", display="Digital I/O Control")
m.enum(C, "LineSelector", "Selects the physical line (connector pin) to configure. Line0 is an opto-coupled input, Line1 an opto-coupled output, Line2 and Line3 are GPIOs.",
       [E("Line0", 0, "Opto-coupled input line."), E("Line1", 1, "Opto-coupled output line."),
        E("Line2", 2, "General purpose line."), E("Line3", 3, "General purpose line.")], default="Line0")
m.swissknife(C, "VntLineCanBeInput", [("LS", "LineSelectorReg")], "LS <> 1", "Line1 is an output only.")
m.swissknife(C, "VntLineCanBeOutput", [("LS", "LineSelectorReg")], "LS <> 0", "Line0 is an input only.")
m.enum(C, "LineMode", "Direction of the selected line.",
       [E("Input", 0, "The line is an input.", avail="VntLineCanBeInput"),
        E("Output", 1, "The line is an output.", avail="VntLineCanBeOutput")],
       sel="LineSelector", default={"Line0": "Input", "Line1": "Output", "Line2": "Input", "Line3": "Input"})
m.boolean(C, "LineInverter", "Inverts the signal of the selected line.", sel="LineSelector", vis="Expert", default=False)
m.boolean(C, "LineStatus", "Current state of the selected line.", sel="LineSelector", access="RO", volatile=True, vis="Expert",
          default=False)
m.integer(C, "LineStatusAll", "States of all lines; bit n is the state of Line n.", access="RO", volatile=True, poll=1000,
          min=0, max=0xF, repr="HexNumber", vis="Expert", default=0)
m.swissknife(C, "VntLineIsOutput", [("LM", "LineModeReg")], "LM = 1", "The line source only applies to output lines.")
m.swissknife(C, "VntLineIsInput", [("LM", "LineModeReg")], "LM = 0", "The debouncer only applies to input lines.")
LSRC = [("Off", 0), ("ExposureActive", 1), ("FrameTriggerWait", 2), ("FrameActive", 3), ("AcquisitionActive", 4),
        ("Timer0Active", 5), ("Timer1Active", 6), ("Counter0Active", 7), ("UserOutput0", 8), ("UserOutput1", 9),
        ("UserOutput2", 10), ("SequencerOutput", 11)]
m.enum(C, "LineSource", "Internal signal driving the selected output line. Only available for output lines.",
       [E(n, v) for n, v in LSRC], sel="LineSelector", avail="VntLineIsOutput",
       default={"Line0": "Off", "Line1": "ExposureActive", "Line2": "Off", "Line3": "Off"})
m.enum(C, "LineFormat", "Electrical format of the selected line.",
       [E("NoConnect", 0, "Not connected."), E("TriState", 1, "Tri-state."), E("TTL", 2, "TTL."), E("LVDS", 3, "LVDS."),
        E("RS422", 4, "RS-422."), E("OptoCoupled", 5, "Opto-coupled.")], sel="LineSelector", access="RO", vis="Expert",
       default={"Line0": "OptoCoupled", "Line1": "OptoCoupled", "Line2": "TTL", "Line3": "TTL"})
m.float(C, "LineDebouncerTime", "Minimum duration a signal level must be stable on the selected input line to be accepted.",
        sel="LineSelector", min=0.0, max=5000.0, unit=US, avail="VntLineIsInput", vis="Expert", default=10.0)
m.float(C, "VntLineMinimumOutputPulseWidth", "Minimum duration of a pulse on the selected output line; shorter pulses are stretched.",
        sel="LineSelector", min=0.0, max=100000.0, unit=US, avail="VntLineIsOutput", vis="Expert", default=0.0)
m.boolean(C, "VntLineOverloadStatus", "True when the selected output line is overloaded.", sel="LineSelector", access="RO",
          volatile=True, vis="Guru", default=False)
m.enum(C, "UserOutputSelector", "Selects the user output to set with UserOutputValue.",
       [E("UserOutput0", 0), E("UserOutput1", 1), E("UserOutput2", 2)], vis="Expert", default="UserOutput0")
m.boolean(C, "UserOutputValue", "Value of the selected user output; it drives lines whose LineSource is that user output.",
          sel="UserOutputSelector", vis="Expert", default=False)
m.integer(C, "UserOutputValueAll", "Values of all user outputs; bit n is UserOutput n.", min=0, max=7, repr="HexNumber",
          vis="Expert", default=0)
m.integer(C, "UserOutputValueAllMask", "Bits of UserOutputValueAll that are written.", min=0, max=7, repr="HexNumber",
          vis="Guru", default=7)

# -------------------------------------------------------------- SoftwareSignalControl
C = "SoftwareSignalControl"
m.category(C, "Root", "Software signals that can be used as trigger sources.", vis="Expert")
m.enum(C, "SoftwareSignalSelector", "Selects the software signal to generate with SoftwareSignalPulse.",
       [E("SoftwareSignal0", 0), E("SoftwareSignal1", 1), E("SoftwareSignal2", 2)], vis="Expert", default="SoftwareSignal0")
m.command(C, "SoftwareSignalPulse", "Generates a pulse on the selected software signal.", sel="SoftwareSignalSelector",
          noindex=True, vis="Expert")

# ----------------------------------------------------------- CounterAndTimerControl
C = "CounterAndTimerControl"
m.category(C, "Root", "Counters and timers that can count events and generate delayed pulses.", vis="Expert")
C = "VntCounterControl"
m.category(C, "CounterAndTimerControl", "Counters.", display="Counters", vis="Expert")
m.enum(C, "CounterSelector", "Selects the counter to configure.", [E("Counter0", 0), E("Counter1", 1), E("Counter2", 2)],
       vis="Expert", default="Counter0")
CEV = [("Off", 0), ("AcquisitionTrigger", 1), ("AcquisitionStart", 2), ("AcquisitionEnd", 3), ("FrameTrigger", 4),
       ("FrameStart", 5), ("FrameEnd", 6), ("ExposureStart", 7), ("ExposureEnd", 8), ("Line0", 9), ("Line2", 10),
       ("Line3", 11), ("Timer0End", 12)]
m.enum(C, "CounterEventSource", "Event that increments the selected counter.", [E(n, v) for n, v in CEV], sel="CounterSelector",
       vis="Expert", default={"Counter0": "FrameStart", "*": "Off"})
m.enum(C, "CounterEventActivation", "Edge of the event source that increments the counter.", edges(), sel="CounterSelector",
       vis="Expert", default="RisingEdge")
CRS = [("Off", 0), ("SoftwareSignal0", 1), ("SoftwareSignal1", 2), ("SoftwareSignal2", 3), ("Line0", 4), ("Line2", 5),
       ("Line3", 6), ("AcquisitionStart", 7), ("FrameStart", 8)]
m.enum(C, "CounterResetSource", "Signal that resets the selected counter.", [E(n, v) for n, v in CRS], sel="CounterSelector",
       vis="Expert", default="Off")
m.enum(C, "CounterResetActivation", "Edge or level of the reset source that resets the counter.", edges(True),
       sel="CounterSelector", vis="Expert", default="RisingEdge")
m.command(C, "CounterReset", "Resets the selected counter by software.", sel="CounterSelector", noindex=True, vis="Expert")
m.integer(C, "CounterValue", "Current value of the selected counter.", sel="CounterSelector", volatile=True, streamable=False,
          min=0, max=4294967295, repr="PureNumber", vis="Expert", default=0)
m.integer(C, "CounterValueAtReset", "Value of the selected counter when it was last reset.", sel="CounterSelector", access="RO",
          volatile=True, min=0, max=4294967295, repr="PureNumber", vis="Expert", default=0)
m.integer(C, "CounterDuration", "Number of events after which the selected counter ends (CounterEnd).", sel="CounterSelector",
          min=1, max=4294967295, vis="Expert", default=1)
m.enum(C, "CounterStatus", "State of the selected counter.",
       [E("CounterIdle", 0), E("CounterTriggerWait", 1), E("CounterActive", 2), E("CounterCompleted", 3),
        E("CounterOverflow", 4)], sel="CounterSelector", access="RO", volatile=True, vis="Expert", default="CounterIdle")
m.enum(C, "CounterTriggerSource", "Signal that starts the selected counter.",
       [E(n, v) for n, v in [("Off", 0), ("AcquisitionStart", 1), ("FrameStart", 2), ("Line0", 3), ("SoftwareSignal0", 4)]],
       sel="CounterSelector", vis="Expert", default="Off")
m.enum(C, "CounterTriggerActivation", "Edge of the trigger source that starts the counter.", edges(), sel="CounterSelector",
       vis="Expert", default="RisingEdge")
C = "VntTimerControl"
m.category(C, "CounterAndTimerControl", "Timers.", display="Timers", vis="Expert")
m.enum(C, "TimerSelector", "Selects the timer to configure.", [E("Timer0", 0), E("Timer1", 1)], vis="Expert", default="Timer0")
m.float(C, "TimerDuration", "Duration of the pulse generated by the selected timer.", sel="TimerSelector",
        min=0.0, max=16777215.0, unit=US, vis="Expert", default=1000.0)
m.float(C, "TimerDelay", "Delay between the timer trigger and the start of the pulse.", sel="TimerSelector",
        min=0.0, max=16777215.0, unit=US, vis="Expert", default=0.0)
m.float(C, "TimerValue", "Current value of the selected timer.", sel="TimerSelector", access="RO", volatile=True,
        min=0.0, max=16777215.0, unit=US, vis="Guru", default=0.0)
m.enum(C, "TimerStatus", "State of the selected timer.",
       [E("TimerIdle", 0), E("TimerTriggerWait", 1), E("TimerActive", 2), E("TimerCompleted", 3)],
       sel="TimerSelector", access="RO", volatile=True, vis="Expert", default="TimerIdle")
TTS = [("Off", 0), ("ExposureStart", 1), ("ExposureEnd", 2), ("FrameStart", 3), ("FrameEnd", 4), ("Line0", 5), ("Line2", 6),
       ("Line3", 7), ("SoftwareSignal0", 8), ("SoftwareSignal1", 9), ("SoftwareSignal2", 10), ("Counter0End", 11)]
m.enum(C, "TimerTriggerSource", "Signal that starts the selected timer.", [E(n, v) for n, v in TTS], sel="TimerSelector",
       vis="Expert", default={"Timer0": "ExposureStart", "Timer1": "Off"})
m.enum(C, "TimerTriggerActivation", "Edge or level of the trigger source that starts the timer.", edges(True),
       sel="TimerSelector", vis="Expert", default="RisingEdge")
m.command(C, "TimerReset", "Resets the selected timer.", sel="TimerSelector", noindex=True, vis="Expert")

# ------------------------------------------------------------------- ActionControl
C = "ActionControl"
m.category(C, "Root", "Action commands: network broadcast commands that trigger several devices at the same time.", vis="Expert")
m.integer(C, "ActionDeviceKey", "Key that an action command must carry to be accepted by this device. Write-only for security.",
          access="WO", min=0, max=0xFFFFFFFF, repr="HexNumber", vis="Expert", default=0)
m.integer(C, "ActionSelector", "Selects the action to configure.", min=0, max=1, vis="Expert", default=0)
m.integer(C, "ActionGroupKey", "Group key that an action command must carry to trigger the selected action.",
          sel="ActionSelector", min=0, max=0xFFFFFFFF, repr="HexNumber", vis="Expert", default=0)
m.integer(C, "ActionGroupMask", "Group mask that must overlap with the mask of an action command to trigger the selected action.",
          sel="ActionSelector", min=0, max=0xFFFFFFFF, repr="HexNumber", vis="Expert", default=0)
m.integer(C, "ActionQueueSize", "Number of scheduled action commands the device can queue.", access="RO", min=0, max=64,
          vis="Guru", default=8)
m.enum(C, "ActionUnconditionalMode", "When On, actions are executed even if the device is not opened by a controlling application.",
       onoff(), vis="Guru", default="Off")

# -------------------------------------------------------------------- EventControl
C = "EventControl"
m.category(C, "Root", "Features that control the generation of events sent to the host.", vis="Expert")
EVENTS = [("ExposureEnd", 0x9001, "the end of an exposure", True),
          ("FrameStart", 0x9002, "the start of a frame", True),
          ("FrameTriggerMissed", 0x9003, "a frame trigger that was ignored", False),
          ("CriticalTemperature", 0x9004, "the device temperature reaching the critical range", False),
          ("OverTemperature", 0x9005, "the device temperature exceeding the limit", False),
          ("Line0RisingEdge", 0x9006, "a rising edge on Line0", False)]
m.enum(C, "EventSelector", "Selects the event to configure with EventNotification.",
       [E(n, i, "Event sent on %s." % d) for i, (n, _, d, _) in enumerate(EVENTS)], vis="Expert", default="ExposureEnd")
m.enum(C, "EventNotification", "Activates or deactivates the notification of the selected event to the host.",
       onoff(), sel="EventSelector", vis="Expert", default="Off")
for n, eid, d, has_fid in EVENTS:
    C = "Event%sData" % n
    m.category(C, "EventControl", "Data of the %s event." % n, vis="Expert")
    m.integer(C, "Event%s" % n, "Unique identifier of the %s event, sent on %s." % (n, d), value=hex(eid),
              imposed="RO", repr="HexNumber", vis="Expert")
    m.integer(C, "Event%sTimestamp" % n, "Timestamp of the last %s event." % n, access="RO", volatile=True, length=8,
              signed=True, min=0, max=9223372036854775807, unit="ns", repr="PureNumber", vis="Expert", default=0)
    if has_fid:
        m.integer(C, "Event%sFrameID" % n, "Frame ID of the last %s event." % n, access="RO", volatile=True, length=8,
                  signed=True, min=0, max=9223372036854775807, repr="PureNumber", vis="Expert", default=0)

# ------------------------------------------------------------------ UserSetControl
C = "UserSetControl"
m.category(C, "Root", "User sets store the configuration of the device in non-volatile memory so it can be restored later.")
USETS = [E("Default", 0, "Factory settings; read-only."), E("UserSet1", 1, "User set 1."),
         E("UserSet2", 2, "User set 2."), E("UserSet3", 3, "User set 3.")]
m.enum(C, "UserSetSelector", "Selects the user set to load, save or describe.", USETS, default="Default")
m.command(C, "UserSetLoad", "Loads the selected user set into the active configuration of the device.", sel="UserSetSelector",
          noindex=True)
m.swissknife(C, "VntUserSetIsWritable", [("US", "UserSetSelectorReg")], "US <> 0", "The Default user set cannot be overwritten.")
m.swissknife(C, "VntUserSetIsFactory", [("US", "UserSetSelectorReg")], "US = 0", "The description of the Default user set is fixed.")
m.command(C, "UserSetSave", "Saves the active configuration of the device into the selected user set. Not available for Default.",
          sel="UserSetSelector", noindex=True, avail="VntUserSetIsWritable")
m.enum(C, "UserSetDefault", "User set loaded when the device is powered on or reset.",
       [E(e.name, e.value, e.doc) for e in USETS], default="Default")
m.string(C, "VntUserSetDescription", "Free text describing the selected user set. Fixed for the Default set.",
         sel="UserSetSelector", length=64, locked="VntUserSetIsFactory", vis="Expert",
         default={"Default": "Factory settings", "UserSet1": "User set 1", "UserSet2": "User set 2", "UserSet3": "User set 3"})

# ------------------------------------------------------------------ SequencerControl
C = "SequencerControl"
m.category(C, "Root", "The sequencer switches automatically between up to eight stored parameter sets.", vis="Guru")
m.enum(C, "SequencerMode", "Enables the sequencer.", onoff(), vis="Guru", default="Off")
m.swissknife(C, "VntSequencerRunning", [("SM", "SequencerModeReg")], "SM <> 0",
             "The sequencer configuration cannot be changed while the sequencer runs.")
m.enum(C, "SequencerConfigurationMode", "Enables the configuration of the sequencer. Locked while SequencerMode is On.",
       onoff(), locked="VntSequencerRunning", vis="Guru", default="Off")
m.enum(C, "SequencerFeatureSelector", "Selects a feature to include in or exclude from the sequencer sets.",
       [E("ExposureTime", 0), E("Gain", 1), E("OffsetX", 2), E("OffsetY", 3), E("TriggerDelay", 4)], vis="Guru",
       default="ExposureTime")
m.boolean(C, "SequencerFeatureEnable", "Includes the selected feature in the sequencer sets.", sel="SequencerFeatureSelector",
          vis="Guru", default={"ExposureTime": True, "Gain": True, "*": False})
m.integer(C, "SequencerSetSelector", "Selects the sequencer set to configure.", min=0, max=7, vis="Guru", default=0)
m.command(C, "SequencerSetSave", "Saves the current values of the sequencer features into the selected set.", vis="Guru")
m.command(C, "SequencerSetLoad", "Loads the selected set into the current values of the sequencer features.", vis="Guru")
m.integer(C, "SequencerSetActive", "Index of the sequencer set that is currently active.", access="RO", volatile=True,
          min=0, max=7, vis="Guru", default=0)
m.integer(C, "SequencerSetStart", "Sequencer set used when the sequencer starts.", min=0, max=7, vis="Guru", default=0)
m.integer(C, "SequencerPathSelector", "Selects the path of the selected set to configure.", min=0, max=1, vis="Guru", default=0)
m.integer(C, "SequencerSetNext", "Set that follows the selected set when the path's trigger occurs.", sel="SequencerSetSelector",
          min=0, max=7, vis="Guru", default=lambda i: (i + 1) % 8)
m.enum(C, "SequencerTriggerSource", "Signal that advances the sequencer from the selected set.",
       [E(n, v) for n, v in [("Off", 0), ("FrameStart", 1), ("ExposureEnd", 2), ("Line0", 3), ("SoftwareSignal0", 4),
                             ("Counter0End", 5), ("Timer0End", 6)]],
       sel="SequencerSetSelector", vis="Guru", default="FrameStart")
m.enum(C, "SequencerTriggerActivation", "Edge or level of the sequencer trigger source.", edges(True),
       sel="SequencerSetSelector", vis="Guru", default="RisingEdge")

# ------------------------------------------------------------------ ChunkDataControl
C = "ChunkDataControl"
m.category(C, "Root", "Chunk data: additional information appended to each image.", vis="Expert")
m.boolean(C, "ChunkModeActive", "Activates the inclusion of chunk data in the payload of the image.", locked=LOCK_IMG,
          vis="Expert", default=False)
CHUNKS = ["Image", "Timestamp", "ExposureTime", "Gain", "FrameID", "LineStatusAll", "Width", "Height", "OffsetX", "OffsetY",
          "PixelFormat", "CounterValue", "SequencerSetActive", "PayloadCRC16"]
m.enum(C, "ChunkSelector", "Selects the chunk to enable or disable with ChunkEnable.", [E(n, i) for i, n in enumerate(CHUNKS)],
       vis="Expert", default="Image")
m.boolean(C, "ChunkEnable", "Includes the selected chunk in the payload.", sel="ChunkSelector", vis="Expert",
          default={"Image": True, "*": False})
CA = "ChunkModeActiveReg"
m.integer(C, "ChunkTimestamp", "Timestamp of the image, from the chunk data.", access="RO", volatile=True, length=8,
          signed=True, min=0, max=9223372036854775807, unit="ns", repr="PureNumber", avail=CA, vis="Expert", default=0)
m.float(C, "ChunkExposureTime", "Exposure time of the image, from the chunk data.", access="RO", volatile=True,
        min=0.0, max=10000000.0, unit=US, avail=CA, vis="Expert", default=0.0)
m.float(C, "ChunkGain", "Gain of the image, from the chunk data.", access="RO", volatile=True, min=0.0, max=24.0,
        unit="dB", avail=CA, vis="Expert", default=0.0)
m.integer(C, "ChunkFrameID", "Frame ID of the image, from the chunk data.", access="RO", volatile=True, length=8,
          signed=True, min=0, max=9223372036854775807, repr="PureNumber", avail=CA, vis="Expert", default=0)
m.integer(C, "ChunkLineStatusAll", "State of all lines at the start of the exposure, from the chunk data.", access="RO",
          volatile=True, min=0, max=0xF, repr="HexNumber", avail=CA, vis="Expert", default=0)
for n, mx in [("Width", 1920), ("Height", 1200), ("OffsetX", 1919), ("OffsetY", 1199)]:
    m.integer(C, "Chunk" + n, "%s of the image, from the chunk data." % n, access="RO", volatile=True, min=0, max=mx,
              unit="px", avail=CA, vis="Expert", default=0)
m.enum(C, "ChunkPixelFormat", "Pixel format of the image, from the chunk data.",
       [E(e.name, e.value, e.doc, display=e.display) for e in PIXEL_FORMATS], access="RO", volatile=True, avail=CA,
       vis="Expert", default="Mono8")
m.integer(C, "ChunkCounterValue", "Value of the selected counter at the start of the exposure, from the chunk data.",
          access="RO", volatile=True, min=0, max=4294967295, repr="PureNumber", avail=CA, vis="Expert", default=0)
m.integer(C, "ChunkSequencerSetActive", "Index of the sequencer set used for the image, from the chunk data.",
          access="RO", volatile=True, min=0, max=7, avail=CA, vis="Guru", default=0)
m.integer(C, "ChunkPayloadCRC16", "CRC16 checksum of the image payload, from the chunk data.", access="RO", volatile=True,
          min=0, max=0xFFFF, repr="HexNumber", avail=CA, vis="Guru", default=0)

# ------------------------------------------------------------------ FileAccessControl
C = "FileAccessControl"
m.category(C, "Root", "Access to files stored in the device.", vis="Guru")
FILES = [E("UserData", 0, "Free user data."), E("UserSet1", 1), E("UserSet2", 2), E("UserSet3", 3),
         E("VntDefectPixelList", 4, "Stored defect pixel list.", display="Defect Pixel List")]
m.enum(C, "FileSelector", "Selects the file to access.", FILES, vis="Guru", default="UserData")
m.enum(C, "FileOperationSelector", "Selects the operation to execute with FileOperationExecute.",
       [E("Open", 0), E("Close", 1), E("Read", 2), E("Write", 3), E("Delete", 4)], vis="Guru", default="Open")
m.command(C, "FileOperationExecute", "Executes the selected operation on the selected file.", vis="Guru")
m.enum(C, "FileOpenMode", "Access mode in which the file is opened.",
       [E("Read", 0), E("Write", 1), E("ReadWrite", 2)], vis="Guru", default="Read")
m.integer(C, "FileAccessOffset", "Offset in the file at which the next read or write operation starts.",
          min=0, max=1048576, unit="B", vis="Guru", default=0)
m.integer(C, "FileAccessLength", "Number of bytes to read or write.", min=0, max=4096, unit="B", vis="Guru", default=0)
m.enum(C, "FileOperationStatus", "Result of the last file operation.", [E("Success", 0), E("Failure", 1)],
       access="RO", volatile=True, vis="Guru", default="Success")
m.integer(C, "FileOperationResult", "Number of bytes transferred by the last read or write operation.", access="RO",
          volatile=True, min=0, max=4096, unit="B", vis="Guru", default=0)
m.integer(C, "FileSize", "Size of the selected file.", sel="FileSelector", access="RO", volatile=True,
          min=0, max=1048576, unit="B", vis="Guru", default={"UserData": 4096, "VntDefectPixelList": 2048, "*": 16384})

# -------------------------------------------------------------- TransportLayerControl
C = "TransportLayerControl"
m.category(C, "Root", "Features related to the transport layer of the device.")
m.integer(C, "PayloadSize", "Number of bytes transferred for each image on the stream channel (Width x Height x bytes per pixel).",
          access="RO", volatile=True, min=0, max=0x7FFFFFFF, unit="B", vis="Expert", default=1920 * 1200,
          invalidators=["WidthReg", "HeightReg", "PixelFormatReg"])
# The viewer's to set while it streams, never a setting: a feature set must not carry it.
m.integer(C, "TLParamsLocked", "Set to 1 by the transport layer while streaming; locks the features that change the payload size.",
          min=0, max=1, vis="Invisible", streamable=False, default=0)
C = "GigEVision"
m.category(C, "TransportLayerControl", "GigE Vision specific features.", display="GigE Vision", vis="Expert")
m.integer(C, "GevVersionMajor", "Major version of the GigE Vision standard the device supports.", access="RO",
          min=0, max=65535, repr="PureNumber", vis="Expert", default=2)
m.integer(C, "GevVersionMinor", "Minor version of the GigE Vision standard the device supports.", access="RO",
          min=0, max=65535, repr="PureNumber", vis="Expert", default=2)
m.boolean(C, "GevDeviceModeIsBigEndian", "Endianness of the bootstrap registers of the device.", access="RO", vis="Guru",
          default=False)
m.integer(C, "GevInterfaceSelector", "Selects the physical network interface to control.", min=0, max=0, vis="Expert", default=0)
GI = "GevInterfaceSelector"
m.integer(C, "GevMACAddress", "MAC address of the selected network interface.", sel=GI, access="RO", length=8,
          min=0, max=0xFFFFFFFFFFFF, repr="MACAddress", vis="Expert", default="0x02564E540001")
m.boolean(C, "GevCurrentIPConfigurationLLA", "Controls whether the Link Local Address IP configuration scheme is active.",
          sel=GI, access="RO", vis="Guru", default=True)
m.boolean(C, "GevCurrentIPConfigurationDHCP", "Controls whether the DHCP IP configuration scheme is active.", sel=GI,
          vis="Guru", default=True)
m.boolean(C, "GevCurrentIPConfigurationPersistentIP", "Controls whether the persistent IP configuration scheme is active.",
          sel=GI, vis="Guru", default=False)
m.integer(C, "GevCurrentIPAddress", "Current IP address of the selected network interface.", sel=GI, access="RO",
          min=0, max=0xFFFFFFFF, repr="IPV4Address", vis="Expert", default="0xC0A80A64")
m.integer(C, "GevCurrentSubnetMask", "Current subnet mask of the selected network interface.", sel=GI, access="RO",
          min=0, max=0xFFFFFFFF, repr="IPV4Address", vis="Expert", default="0xFFFFFF00")
m.integer(C, "GevCurrentDefaultGateway", "Current default gateway of the selected network interface.", sel=GI, access="RO",
          min=0, max=0xFFFFFFFF, repr="IPV4Address", vis="Expert", default="0xC0A80A01")
m.integer(C, "GevPersistentIPAddress", "Persistent IP address used after power-up when persistent IP is enabled.", sel=GI,
          min=0, max=0xFFFFFFFF, repr="IPV4Address", vis="Guru", default="0xC0A80A64")
m.integer(C, "GevPersistentSubnetMask", "Persistent subnet mask.", sel=GI, min=0, max=0xFFFFFFFF, repr="IPV4Address",
          vis="Guru", default="0xFFFFFF00")
m.integer(C, "GevPersistentDefaultGateway", "Persistent default gateway.", sel=GI, min=0, max=0xFFFFFFFF,
          repr="IPV4Address", vis="Guru", default="0xC0A80A01")
m.integer(C, "GevLinkSpeed", "Link speed of the selected network interface.", sel=GI, access="RO", min=0, max=100000,
          unit="Mbps", vis="Expert", default=1000)
m.boolean(C, "GevPAUSEFrameReception", "Controls whether incoming PAUSE frames are handled on the selected interface.",
          sel=GI, vis="Guru", default=True)
m.integer(C, "GevNumberOfInterfaces", "Number of physical network interfaces of the device.", access="RO", min=1, max=4,
          vis="Guru", default=1)
m.integer(C, "GevMessageChannelCount", "Number of message channels supported by the device.", access="RO", min=0, max=1,
          vis="Guru", default=1)
m.integer(C, "GevStreamChannelCount", "Number of stream channels supported by the device.", access="RO", min=0, max=4,
          vis="Guru", default=1)
m.integer(C, "GevHeartbeatTimeout", "Heartbeat timeout: the device closes the control channel when the application sends no command for this time.",
          min=500, max=60000, unit="ms", vis="Guru", default=3000)
m.boolean(C, "GevGVCPHeartbeatDisable", "Disables the GVCP heartbeat. Useful while debugging the application.", vis="Guru",
          default=False)
m.boolean(C, "GevGVCPPendingAck", "Enables the generation of PENDING_ACK for long operations.", vis="Guru", default=True)
m.integer(C, "GevTimestampTickFrequency", "Number of timestamp ticks per second.", access="RO", length=8, min=0,
          max=0xFFFFFFFFFF, unit="Hz", vis="Expert", default=1000000000)
m.string(C, "GevFirstURL", "First URL to the GenICam XML description of the device.", access="RO", length=128, vis="Guru",
         default="Local:VantoSimCamera.xml;0;0")
m.string(C, "GevSecondURL", "Second URL to the GenICam XML description of the device.", access="RO", length=128, vis="Guru",
         default="")
m.integer(C, "GevMCDA", "Destination IP address of the message channel.", min=0, max=0xFFFFFFFF, repr="IPV4Address",
          vis="Guru", default=0)
m.integer(C, "GevMCPHostPort", "Destination UDP port of the message channel.", min=0, max=65535, vis="Guru", default=0)
m.integer(C, "GevMCTT", "Transmission timeout of the message channel.", min=0, max=10000, unit="ms", vis="Guru", default=300)
m.integer(C, "GevMCRC", "Number of retransmissions allowed on the message channel.", min=0, max=10, vis="Guru", default=2)
C = "VntGevStreamChannelControl"
m.category(C, "GigEVision", "GigE Vision stream channel parameters that control packet size and bandwidth.",
           display="Stream Channel", vis="Expert")
SC = "GevStreamChannelSelector"
m.integer(C, SC, "Selects the stream channel to control.", min=0, max=0, vis="Expert", default=0)
m.integer(C, "GevSCPInterfaceIndex", "Index of the network interface used by the selected stream channel.", sel=SC,
          access="RO", min=0, max=0, vis="Guru", default=0)
m.integer(C, "GevSCPHostPort", "Destination UDP port of the selected stream channel.", sel=SC, min=0, max=65535,
          vis="Guru", default=0)
m.integer(C, "GevSCDA", "Destination IP address of the selected stream channel.", sel=SC, min=0, max=0xFFFFFFFF,
          repr="IPV4Address", vis="Guru", default=0)
m.integer(C, "GevSCPSPacketSize", "Size of the stream packets. Larger packets (jumbo frames) reduce the CPU load; the network card must support them.",
          sel=SC, min=576, max=9000, inc=4, unit="B", vis="Expert", default=1500)
m.boolean(C, "GevSCPSDoNotFragment", "Sets the do-not-fragment bit of the stream packets.", sel=SC, vis="Guru", default=True)
m.boolean(C, "GevSCPSBigEndian", "Endianness of multi-byte pixel data in the stream packets.", sel=SC, access="RO",
          vis="Guru", default=False)
m.boolean(C, "GevSCPSFireTestPacket", "Sends a test packet to check the path MTU.", sel=SC, vis="Guru", default=False)
m.integer(C, "GevSCPD", "Delay between two stream packets, in timestamp ticks. Increase it to reduce the bandwidth peaks when several cameras share a link.",
          sel=SC, min=0, max=1000000, unit="ticks", vis="Expert", default=0)
m.integer(C, "GevSCFTD", "Delay before the transmission of each frame, in timestamp ticks.", sel=SC, min=0, max=100000000,
          unit="ticks", vis="Expert", default=0)
m.integer(C, "GevSCBWR", "Bandwidth reserved for packet resends, as a percentage of the stream bandwidth.", sel=SC,
          min=0, max=26, unit="%", vis="Expert", default=10)
m.integer(C, "GevSCBWRA", "Number of frames over which reserved resend bandwidth may be accumulated.", sel=SC,
          min=1, max=32, vis="Guru", default=10)

# --------------------------------------------------------------------- TestControl
C = "TestControl"
m.category(C, "Root", "Features for testing the device and its host software.", vis="Guru")
m.integer(C, "TestPendingAck", "Time the device waits before acknowledging a write to this feature; tests PENDING_ACK handling.",
          min=0, max=10000, unit="ms", vis="Guru", default=0)
m.command(C, "TestEventGenerate", "Generates a test event.", vis="Guru")
m.integer(C, "VntTestSignedValue64", "Signed 64-bit test value covering the full range of the GenICam integer type.",
          length=8, signed=True, min=-9223372036854775808, max=9223372036854775807, repr="Linear", vis="Guru", default=0)
m.integer(C, "VntTestAddress40", "40-bit test value displayed as hexadecimal number.", length=8, min=0, max=0xFFFFFFFFFF,
          repr="HexNumber", vis="Guru", default="0x123456789A")
m.integer(C, "VntTestMaskedSigned", "Signed 12-bit test value stored in bits 4 to 15 of its register.", masked=(4, 15),
          signed=True, min=-2048, max=2047, vis="Guru", default=-100)
m.float(C, "VntTestFloatScientific", "Test value shown in scientific notation.", min=1e-9, max=1e9, repr="Logarithmic",
        notation="Scientific", precision=4, vis="Guru", default=0.000125)
m.float(C, "VntTestFloatSingle", "Test value stored as a 32-bit float.", length=4, min=-1000.0, max=1000.0, vis="Guru",
        default=3.25)
m.string(C, "VntTestString", "Writable test string.", length=32, vis="Guru", default="Hello, Nodescope")

# ---------------------------------------------------------------------- VntDebugControl
C = "VntDebugControl"
m.category(C, "Root", "Vanto-specific diagnostics of the simulated device.", display="Debug Control", vis="Guru")
m.enum(C, "VntDebugLogLevel", "Amount of diagnostic messages the device writes to its log.",
       [E("Off", 0), E("Error", 1), E("Warning", 2), E("Info", 3), E("Debug", 4)], vis="Guru", default="Warning")
m.integer(C, "VntDebugRegisterAddress", "Address of the register accessed with VntDebugRegisterValue.", length=8,
          min=0, max=0xFFFFFFFF, repr="HexNumber", vis="Invisible", default=0)
m.integer(C, "VntDebugRegisterValue", "Raw value of the register at VntDebugRegisterAddress.", min=0, max=0xFFFFFFFF,
          repr="HexNumber", vis="Invisible", default=0)
m.float(C, "VntSimulationNoiseLevel", "Standard deviation of noise for simulated images, as a fraction of full scale. Stored only: the simulated images are noise-free, so that their pixels follow exact formulas.",
        min=0.0, max=1.0, repr="PureNumber", notation="Fixed", precision=3, vis="Guru", default=0.02)
m.boolean(C, "VntSimulationTemperatureDrift", "Lets the simulated device temperature drift over time.", vis="Guru", default=True)
m.string(C, "VntFirmwareBuildDate", "Build date of the simulated firmware.", access="RO", length=16, vis="Invisible",
         default="2024-06-01")

m.defaults_first = ["SensorWidth", "SensorHeight", "BinningHorizontal", "BinningVertical",
                    "DecimationHorizontal", "DecimationVertical"]

m.constant("AcquisitionControl", "VntUltraShortExposureImplemented", 0,
           "This model's sensor has one exposure time range: ExposureTimeMode is not implemented.")
