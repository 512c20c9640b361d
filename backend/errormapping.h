#pragma once

#include <parametercollection/exception.h>

#include <glib.h>

namespace Backend {

// The kind of ParameterCollection::Exception that an Aravis error stands for.
ParameterCollection::Exception::Kind exceptionKindOf(GQuark domain, int code);

// An Aravis error's text. Aravis prefixes the node's name as "[Name] " at more than one level,
// so that a message may name it twice in a row; it is named once here.
QString messageOf(const GError* error);

// True for errors after which the device cannot be trusted to answer again.
bool isDeviceLossError(GQuark domain, int code);

// Throws the typed exception for an Aravis error, naming the feature.
[[noreturn]] void throwFor(ParameterCollection::Exception::Kind kind, const QString& feature,
                           const QString& message);

} // namespace Backend
