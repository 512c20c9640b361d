#include "iplugininitializer.h"

namespace Core {
namespace Plugin {

IPluginInitializer::IPluginInitializer(QObject* parent)
    : QObject(parent), m_serviceLock(QReadWriteLock::Recursive)
{}

IPluginInitializer::~IPluginInitializer() = default;

QReadWriteLock* IPluginInitializer::serviceLock() const
{
    return &m_serviceLock;
}

} // namespace Plugin
} // namespace Core
