// The core measures in twips; the screen in pixels.
#pragma once

#include <QString>
#include <string>

namespace kwfy::gui {

// 1440 twips per inch at 96 pixels per inch.
constexpr int kTwipsPerPixel = 15;

constexpr int ToPixels(int twips) {
    return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel;
}
constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

inline QString Q(const std::string& s) {
    return QString::fromStdString(s);
}
inline std::string S(const QString& s) {
    return s.toStdString();
}

}  // namespace kwfy::gui
