#include <maya/MQtUtil.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace {

// The last part of a "|"-separated control path.
QString objectNameOf(const MString& controlName) {
    const QString path = MQtUtil::toQString(controlName);
    return path.mid(path.lastIndexOf('|') + 1);
}

}  // namespace

QWidget* MQtUtil::findControl(MString controlName, const QWidget* ancestor) {
    const QString name = objectNameOf(controlName);
    if (name.isEmpty() || !QApplication::instance()) return nullptr;
    if (ancestor) return ancestor->findChild<QWidget*>(name);
    for (QWidget* topLevel : QApplication::topLevelWidgets()) {
        if (topLevel->objectName() == name) return topLevel;
        if (QWidget* found = topLevel->findChild<QWidget*>(name)) return found;
    }
    return nullptr;
}

MString MQtUtil::toMString(const QString& qstr) { return MString(qstr.toUtf8().constData()); }

QString MQtUtil::toQString(const MString& mstr) { return QString::fromUtf8(mstr.asChar()); }

const char* MQtUtil::className() { return "MQtUtil"; }
