#pragma once

#include <QGuiApplication>
#include <QScreen>

namespace kvraedi::qt {

constexpr double kTwipsPerInch = 1440.0;

inline double DotsPerInch() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->logicalDotsPerInchX() : 96.0;
}

inline int TwipsToPixels(int twips) { return qRound(twips * DotsPerInch() / kTwipsPerInch); }

inline int PixelsToTwips(int pixels) { return qRound(pixels * kTwipsPerInch / DotsPerInch()); }

}  // namespace kvraedi::qt
