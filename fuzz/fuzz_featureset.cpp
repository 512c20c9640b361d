// Feature set files: any bytes either parse or are refused with the parameter layer's
// exception, and what a parsed set writes parses back to the same lines.
#include <featureset.h>

#include <parametercollection/exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using Backend::FeatureSet;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FeatureSet set;
    try {
        set = FeatureSet::parse(
            QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)),
            QStringLiteral("fuzz"));
    } catch (const ParameterCollection::Exception&) {
        return 0;
    }
    FeatureSet again;
    try {
        again = FeatureSet::parse(set.toText(), QStringLiteral("again"));
    } catch (const ParameterCollection::Exception& e) {
        // Quoting may stretch a line or the file past what is read back; nothing else may fail.
        if (!e.message().contains(QLatin1String("long"))) {
            std::abort();
        }
        return 0;
    }
    if (again.lines.size() != set.lines.size()) {
        std::abort();
    }
    for (int i = 0; i < set.lines.size(); ++i) {
        if (FeatureSet::qualifiedName(again.lines[i]) != FeatureSet::qualifiedName(set.lines[i]) ||
            again.lines[i].value != set.lines[i].value) {
            std::abort();
        }
    }
    return 0;
}
