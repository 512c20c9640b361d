// The display name cache's stored text: any text parses, and what is written back parses to
// the same entries.
#include "displaynamecache.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using Plugin::Nodescope::Internal::CDisplayNameCache;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString stored =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QMap<QString, QString> map = CDisplayNameCache::parse(stored);
    const QString written = CDisplayNameCache::serialize(map);
    if (CDisplayNameCache::parse(written) != map) {
        std::abort();
    }
    return 0;
}
