// SPDX-License-Identifier: MIT
#include "desktop/widgets/colours.h"

#include <algorithm>
#include <cmath>

namespace zor {

namespace {

double luminance(const QColor& colour) {
    auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

const RoleColours lightRoles{
    .accent = QColor(0x1f, 0x5f, 0xd0),
    .accentText = QColor(0xff, 0xff, 0xff),
    .pendingBack = QColor(0xff, 0xef, 0xc2),
    .pendingText = QColor(0x6e, 0x45, 0x00),
    .reminder = QColor(0x9a, 0x45, 0x00),
    .error = QColor(0xb0, 0x1c, 0x1c),
    .softText = QColor(0x5c, 0x63, 0x70),
    .directive = QColor(0x1f, 0x5f, 0xd0),
    .codeComment = QColor(0x1c, 0x6b, 0x36),
    .lit = QColor(0xf5, 0xae, 0x14),
    .litEdge = QColor(0x85, 0x58, 0x00),
    .darkEdge = QColor(0x6c, 0x72, 0x7d),
    .edge = QColor(0x84, 0x8b, 0x96),
    .titleBar = QColor(0xd9, 0xe1, 0xee),
    .pickedRow = QColor(0xdc, 0xe7, 0xfb),
    .logBlue = QColor(0x1f, 0x5f, 0xd0),
    .logGreen = QColor(0x1c, 0x6b, 0x36),
    .lockedGround = QColor(0xe0, 0xe0, 0xe0),
};

const RoleColours darkRoles{
    .accent = QColor(0x2a, 0x69, 0xd8),
    .accentText = QColor(0xff, 0xff, 0xff),
    .pendingBack = QColor(0x4d, 0x3a, 0x00),
    .pendingText = QColor(0xff, 0xd5, 0x70),
    .reminder = QColor(0xff, 0xa2, 0x4d),
    .error = QColor(0xff, 0x8a, 0x80),
    .softText = QColor(0xa2, 0xaa, 0xb6),
    .directive = QColor(0x8a, 0xb4, 0xf8),
    .codeComment = QColor(0x7f, 0xd6, 0x9a),
    .lit = QColor(0xf5, 0xb4, 0x1f),
    .litEdge = QColor(0xff, 0xd5, 0x70),
    .darkEdge = QColor(0x94, 0x9c, 0xa8),
    .edge = QColor(0x7c, 0x85, 0x92),
    .titleBar = QColor(0x35, 0x3f, 0x4f),
    .pickedRow = QColor(0x2b, 0x3d, 0x5e),
    .logBlue = QColor(0x8a, 0xb4, 0xf8),
    .logGreen = QColor(0x7f, 0xd6, 0x9a),
    .lockedGround = QColor(0x2d, 0x31, 0x37),
};

struct PaletteRow {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr PaletteRow paletteRows[] = {
    {QPalette::Window, 0xf0f2f4, 0x202327},
    {QPalette::WindowText, 0x1a1c1f, 0xe6e8eb},
    {QPalette::Base, 0xffffff, 0x16181b},
    {QPalette::AlternateBase, 0xf6f7f9, 0x1c1f23},
    {QPalette::Text, 0x1a1c1f, 0xe6e8eb},
    {QPalette::Button, 0xf3f4f6, 0x383d45},
    {QPalette::ButtonText, 0x1a1c1f, 0xe6e8eb},
    {QPalette::BrightText, 0xffffff, 0xffffff},
    {QPalette::Light, 0xffffff, 0x4a505a},
    {QPalette::Midlight, 0xe6e8eb, 0x40464f},
    {QPalette::Mid, 0xb4bac3, 0x2d3137},
    {QPalette::Dark, 0x9aa1ab, 0x121417},
    {QPalette::Shadow, 0x5f6670, 0x0a0b0d},
    {QPalette::Highlight, 0x1f5fd0, 0x2a69d8},
    {QPalette::HighlightedText, 0xffffff, 0xffffff},
    {QPalette::ToolTipBase, 0xfdfbe8, 0x2d3137},
    {QPalette::ToolTipText, 0x1a1c1f, 0xe6e8eb},
    {QPalette::PlaceholderText, 0x5c6370, 0xa2aab6},
    {QPalette::Link, 0x1f5fd0, 0x8ab4f8},
};

} // namespace

Scheme schemeOf(const QPalette& palette) {
    return luminance(palette.color(QPalette::Window)) < luminance(palette.color(QPalette::WindowText))
               ? Scheme::Dark
               : Scheme::Light;
}

const RoleColours& roles(Scheme scheme) {
    return scheme == Scheme::Dark ? darkRoles : lightRoles;
}

QPalette schemePalette(Scheme scheme) {
    QPalette palette;
    for (const auto& row : paletteRows) {
        palette.setColor(row.role, QColor(scheme == Scheme::Dark ? row.dark : row.light));
    }
    QColor greyed(scheme == Scheme::Dark ? 0x7f8794 : 0x868d98);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, greyed);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

double contrast(const QColor& a, const QColor& b) {
    auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableOn(const QColor& background) {
    return contrast(background, Qt::black) >= contrast(background, Qt::white) ? Qt::black : Qt::white;
}

} // namespace zor
