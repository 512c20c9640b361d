#include "integereditordata.h"

#include <parametercollection/iparameter.h>

#include <QByteArray>
#include <QDebug>

using namespace ParameterCollection;

QSharedPointer<const IntegerParameterData> integerEditorData(IParameter* parameter)
{
    if (!qobject_cast<IIntegerParameter*>(parameter)) {
        const QByteArray name = parameter ? parameter->getName().toUtf8() : QByteArray();
        qDebug("%s is called with non-integer node????", name.constData());
        return {};
    }
    const auto integer = parameter->getParameterData().dynamicCast<const IntegerParameterData>();
    if (!integer || integer->type != IntegerType) {
        return {};
    }
    return integer;
}
