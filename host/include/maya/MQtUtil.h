#pragma once
// MQtUtil: the bridge between the API and the application's Qt 5 widgets. The headless host has no
// windows of its own; programs and tests make their controls under their own QApplication, and
// findControl finds them there.

#include <maya/MString.h>
#include <maya/MTypes.h>

#include <QtCore/QList>
#include <QtCore/QString>

class QObject;
class QWidget;

class OPENMAYAUI_EXPORT MQtUtil {
public:
    // The widget whose object name is `controlName` (for a "|"-separated path, its last part), among
    // the descendants of `ancestor` or, without one, among the application's windows and their
    // descendants. Names are meant to be unique: which of several namesakes is found is unspecified.
    // Null, never an error, when there is no QApplication or no such widget.
    static QWidget* findControl(MString controlName, const QWidget* ancestor = NULL);
    // Conversions between MString and QString (UTF-8).
    static MString toMString(const QString& qstr);
    static QString toQString(const MString& mstr);
    static const char* className();
};
