// Finding a dialog view's widgets by object name and working them as the user
// would, for the dialog tests.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWidget>

namespace kwfy::test {

template <typename W>
W* Find(QWidget* view, const char* name) {
    auto* w = view->findChild<W*>(name);
    if (!w) qFatal("no widget %s", name);
    return w;
}

inline void Click(QWidget* view, const char* button) {
    QTest::mouseClick(Find<QPushButton>(view, button), Qt::LeftButton);
}

// Types text key by key, as the user would (keyClicks knows Latin-1 only).
inline void Type(QWidget* view, const char* edit, const QString& text) {
    for (QChar c : text)
        QTest::sendKeyEvent(QTest::Click, Find<QLineEdit>(view, edit), Qt::Key_unknown, QString(c),
                            Qt::NoModifier);
}

}  // namespace kwfy::test
