#pragma once

#include <QImage>
#include <QString>

/// Throws std::runtime_error where a file shows something else than the picture. Versions of the drawing
/// engine may differ by a shade at the edges.
void requireSame(const QString& path, const QImage& picture);
