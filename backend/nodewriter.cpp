#include <arv.h>

#include "nodewriter.h"

#include <parametercollection/parameterdata.h>

using namespace ParameterCollection;

namespace Backend {

bool NodeWriter::write(ArvGcFeatureNode* feature, int type, const QVariant& value, GError** error)
{
    switch (type) {
    case IntegerType:
        arv_gc_integer_set_value(ARV_GC_INTEGER(feature), value.toLongLong(), error);
        return true;
    case FloatType:
        arv_gc_float_set_value(ARV_GC_FLOAT(feature), value.toDouble(), error);
        return true;
    case BooleanType:
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(feature), value.toBool(), error);
        return true;
    case StringType:
        arv_gc_string_set_value(ARV_GC_STRING(feature), value.toString().toUtf8().constData(),
                                error);
        return true;
    case EnumerationType:
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(feature),
                                            value.toString().toUtf8().constData(), error);
        return true;
    case CommandType:
        arv_gc_command_execute(ARV_GC_COMMAND(feature), error);
        return true;
    case RegisterType: {
        const QByteArray bytes = value.toByteArray();
        arv_gc_register_set(ARV_GC_REGISTER(feature), bytes.constData(), guint64(bytes.size()),
                            error);
        return true;
    }
    default:
        return false;
    }
}

} // namespace Backend
