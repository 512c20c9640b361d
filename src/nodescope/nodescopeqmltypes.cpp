#include "nodescopeqmltypes.h"

#include "internal/view/featureoptionsmenu.h"

#include <QtQml>

namespace Plugin {
namespace Nodescope {

void registerNodescopeQmlTypes()
{
    static const bool registered = [] {
        qmlRegisterType<Internal::View::CFeatureOptionsMenu>("FeatureOptionsMenu", 1, 0,
                                                             "FeatureOptionsMenu");
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace Nodescope
} // namespace Plugin
