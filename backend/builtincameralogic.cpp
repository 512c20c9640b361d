#include <arv.h>

#include "builtincameralogic.h"

#include "simulateddevice.h"
#include "simulatedimage.h"

#include <cmath>
#include <functional>

namespace Backend {

BuiltinCameraLogic::BuiltinCameraLogic(SimulatedDevice& device) : m_device(device)
{
    m_payload = lookup("PayloadSizeReg");
    m_width = lookup("WidthReg");
    m_height = lookup("HeightReg");
    m_pixelFormat = lookup("PixelFormatReg");
    m_temperature = lookup("DeviceTemperatureReg");
    m_exposure = lookup("ExposureTimeReg");
    m_exposureAuto = lookup("ExposureAutoReg");
    m_timestamp = lookup("TimestampReg");
    m_timestampLatchValue = lookup("TimestampLatchValueReg");
    m_timestampLatch = lookup("TimestampLatchCmdReg");
    m_timestampReset = lookup("TimestampResetCmdReg");
    m_clock.start();

    ArvGc* genicam = device.genicam();
    if (ArvGcNode* node = arv_gc_get_node(genicam, "ExposureAuto");
        node != nullptr && ARV_IS_GC_ENUMERATION(node)) {
        for (const GSList* it = arv_gc_enumeration_get_entries(ARV_GC_ENUMERATION(node));
             it != nullptr; it = it->next) {
            if (g_strcmp0(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(it->data)),
                          "Continuous") == 0) {
                m_exposureAutoContinuous =
                    arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(it->data), nullptr);
            }
        }
    }

    // Every command's register, found through its pValue.
    std::function<void(ArvDomNode*)> walk = [&](ArvDomNode* parent) {
        for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
             child = arv_dom_node_get_next_sibling(child)) {
            if (ARV_IS_GC_GROUP_NODE(child)) {
                walk(child);
                continue;
            }
            if (!ARV_IS_GC_COMMAND(child)) {
                continue;
            }
            for (ArvDomNode* p = arv_dom_node_get_first_child(child); p != nullptr;
                 p = arv_dom_node_get_next_sibling(p)) {
                if (ARV_IS_GC_PROPERTY_NODE(p) &&
                    arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(p)) ==
                        ARV_GC_PROPERTY_NODE_TYPE_P_VALUE) {
                    ArvGcNode* target =
                        arv_gc_property_node_get_linked_node(ARV_GC_PROPERTY_NODE(p));
                    if (target != nullptr && ARV_IS_GC_FEATURE_NODE(target)) {
                        const Register r =
                            lookup(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(target)));
                        if (r.valid) {
                            m_commandRegisters.insert(r.address, r.length);
                        }
                    }
                }
            }
        }
    };
    walk(ARV_DOM_NODE(arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(genicam))));

    device.addReadHook(
        [this](SimulatedDevice& d, quint64 address, quint32) { onRead(d, address); });
    device.addWriteHook(
        [this](SimulatedDevice& d, quint64 address, quint32) { onWrite(d, address); });
}

BuiltinCameraLogic::Register BuiltinCameraLogic::lookup(const char* nodeName) const
{
    Register r;
    r.valid = m_device.registerOf(nodeName, &r.address, &r.length);
    return r;
}

qint64 BuiltinCameraLogic::timestampNs() const
{
    return m_clock.nsecsElapsed() - m_timestampOriginNs;
}

void BuiltinCameraLogic::onRead(SimulatedDevice& device, quint64 address)
{
    if (m_payload.valid && address == m_payload.address && m_width.valid && m_height.valid) {
        // The stream's buffers are sized from this, so it is what the image takes exactly.
        SimulatedImageSettings image;
        image.width =
            quint32(qBound<qint64>(0, device.peekInt(m_width.address, m_width.length), 65535));
        image.height =
            quint32(qBound<qint64>(0, device.peekInt(m_height.address, m_height.length), 65535));
        image.pixelFormat =
            m_pixelFormat.valid
                ? quint32(device.peekInt(m_pixelFormat.address, m_pixelFormat.length))
                : 0x01080001u; // Mono8
        device.pokeInt(m_payload.address, qint64(SimulatedImage::payloadSize(image)),
                       m_payload.length);
    } else if (m_timestamp.valid && address == m_timestamp.address) {
        device.pokeInt(m_timestamp.address, timestampNs(), m_timestamp.length);
    } else if (m_temperature.valid && address == m_temperature.address) {
        ++m_drift;
        const double t = 42.0 + 1.5 * std::sin(double(m_drift) / 7.0) + 0.01 * double(m_drift % 13);
        device.pokeDouble(m_temperature.address, t, m_temperature.length);
    } else if (m_exposure.valid && address == m_exposure.address && m_exposureAuto.valid &&
               m_exposureAutoContinuous >= 0 &&
               device.peekInt(m_exposureAuto.address, m_exposureAuto.length) ==
                   m_exposureAutoContinuous) {
        ++m_drift;
        const double current = device.peekDouble(m_exposure.address, m_exposure.length);
        const double factor = 1.0 + 0.02 * std::sin(double(m_drift) / 3.0);
        device.pokeDouble(m_exposure.address, qBound(20.0, current * factor, 1000000.0),
                          m_exposure.length);
    } else if (m_commandReadsLeft.contains(address)) {
        if (--m_commandReadsLeft[address] <= 0) {
            m_commandReadsLeft.remove(address);
            device.pokeInt(address, 0, m_commandRegisters.value(address));
        }
    }
}

void BuiltinCameraLogic::onWrite(SimulatedDevice& device, quint64 address)
{
    if (m_timestampReset.valid && address == m_timestampReset.address &&
        device.peekInt(address, m_timestampReset.length) != 0) {
        m_timestampOriginNs = m_clock.nsecsElapsed();
    } else if (m_timestampLatch.valid && m_timestampLatchValue.valid &&
               address == m_timestampLatch.address &&
               device.peekInt(address, m_timestampLatch.length) != 0) {
        device.pokeInt(m_timestampLatchValue.address, timestampNs(), m_timestampLatchValue.length);
    }
    if (m_commandRegisters.contains(address) &&
        device.peekInt(address, m_commandRegisters.value(address)) != 0) {
        // Done after the third look at it: long enough to be seen running.
        m_commandReadsLeft.insert(address, 3);
    }
}

} // namespace Backend
