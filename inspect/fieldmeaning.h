// What the numbers in the fields of a block mean, in English.
#pragma once

#include <QByteArray>
#include <QString>

/// The place of a field in a block. Field names are unique within a place only.
enum class FieldPlace { Frame, Header, Range, DigitalInput, DigitalOutput, AnalogInput, AnalogOutput, Weighing };

/// Returns the text of the choice, the unit or a warning; an empty string if the number needs no explanation. @p family
/// is the signal family of an analog input and otherwise ignored.
QString fieldMeaning(FieldPlace place, quint8 family, const char *name, double value);

/// Returns a text such as "digital module".
QString moduleKindText(quint32 objId);

/// Returns the labels that the dialog gives to the inputs of filter row @p group, and the delay of @p code; or a
/// warning if the row is beyond the last input.
QString filterGroupText(int group, int inputCount, int code);

/// Returns which outputs of byte @p index of @p table are on.
QString outputStatesText(int index, int outputCount, const QByteArray &table);
