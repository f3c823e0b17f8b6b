#include "controls/DropHint.h"

#include <QPalette>
#include <QWidget>

#include <gtest/gtest.h>
#include <tuple>

namespace orvim {
namespace {

TEST(DropHint, ItsTextStandsOutFromTheListOnBothKindsOfTheme)
{
    QWidget list;
    list.setBackgroundRole(QPalette::Base);
    const DropHint hint(QStringLiteral("ここ"), &list);
    for (const auto& [text, base, expected] : {std::tuple(Qt::black, Qt::white, QColor(102, 102, 102)),
                                               std::tuple(Qt::white, Qt::black, QColor(153, 153, 153))}) {
        QPalette theme;
        theme.setColor(QPalette::Text, text);
        theme.setColor(QPalette::Base, base);
        theme.setColor(QPalette::PlaceholderText, base);
        list.setPalette(theme);
        EXPECT_EQ(hint.palette().color(hint.foregroundRole()), expected);
    }
}

} // namespace
} // namespace orvim
