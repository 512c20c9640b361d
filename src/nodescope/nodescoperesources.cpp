#include "nodescoperesources.h"

#include <QtGlobal>

// Q_INIT_RESOURCE must run outside any namespace.
static void registerResources()
{
    Q_INIT_RESOURCE(nodescope);
    Q_INIT_RESOURCE(vantoviewercomponents);
    Q_INIT_RESOURCE(qml);
    Q_INIT_RESOURCE(Nodescope_translations);
}

namespace Plugin {
namespace Nodescope {

void initNodescopeResources()
{
    static const bool registered = [] {
        registerResources();
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace Nodescope
} // namespace Plugin
