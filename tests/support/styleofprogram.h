#pragma once
// The style and the palette of the program, in a test that needs them; what was there before comes back.
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QStyleFactory>

namespace velm::test {

class StyleOfProgram {
public:
    explicit StyleOfProgram(look::Theme theme = look::Theme::Light) {
        QApplication::setStyle(new FrameStyle(QStyleFactory::create(QStringLiteral("Fusion"))));
        QApplication::setPalette(look::palette(theme));
    }
    ~StyleOfProgram() {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setPalette(before_);
    }
    StyleOfProgram(const StyleOfProgram&) = delete;
    StyleOfProgram& operator=(const StyleOfProgram&) = delete;

private:
    QPalette before_ = QApplication::palette();
};

} // namespace velm::test
