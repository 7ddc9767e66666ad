// What the number in a field says to the person who reads it.
#pragma once

#include <QString>
#include <QtGlobal>

/// Where a field stands; names repeat from place to place.
enum class FieldPlace { Frame, Header, Range, DigitalInput, DigitalOutput, AnalogInput, AnalogOutput, Weighing };

/// The text of the choice, unit or warning; empty where the number says it all. @p family matters to analog inputs.
QString fieldMeaning(FieldPlace place, quint8 family, const char *name, double value);

/// "digital module" and so on.
QString moduleKindText(quint32 objId);

/// The inputs of a four-input group as the dialog labels them, or that the group is beyond the last input.
QString filterGroupText(int group, int inputCount, int code);

/// The outputs of byte @p index that are on, the first output in the highest bit.
QString outputStatesText(int index, int outputCount, quint8 states);
