#pragma once
// A control with a text and a selection.
#include "platform/richtext/control.h"

#include <gtest/gtest.h>

namespace velm::test {

class RichTextControlTest : public testing::Test {
protected:
    void load(QStringView text) { control.setText(text); }
    void select(qsizetype start, qsizetype length) {
        control.setSelStart(start);
        control.setSelLength(length);
    }
    RichTextControl control;
};

} // namespace velm::test
