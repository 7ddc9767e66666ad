// Fields of decoded modules in the user's words.
#pragma once

#include "blockdecoder.h"

/// The name of a controller of the host; the number if the host has no such controller.
QString controllerName(quint32 plcType);

/// A parameter's translated title, such as "Range" for "analogInput[3].inputRange"; a null string for a field that is
/// not a parameter of a channel.
QString parameterTitle(const QString &fieldName);

/// The value of a parameter for the user, such as "4~20mA" or "160".
QString parameterText(const blockdecoder::Field &field);

/// What a field of a module or a property of a project is about, in the user's language, such as "Input 3: Range" or
/// "Name". The field's name if it has no title.
QString fieldTitle(const QString &fieldName);

/// The value of any field for the user: parameterText() of a parameter, controllerName() of a controller, else the
/// value with its meaning.
QString fieldValueText(const blockdecoder::Field &field);
