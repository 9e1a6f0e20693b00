#pragma once

#include <QByteArray>
#include <QImage>

/// A picture as a GIF file of one frame, in at most 256 colours.
QByteArray gif(const QImage& picture);
