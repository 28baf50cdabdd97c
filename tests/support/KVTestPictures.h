#pragma once

#include <QByteArray>
#include <QString>

#include <vips/vips8>

#include <vector>

/// Pictures for tests, made by the image library at test time.
namespace KVTestPictures {

using Colour = std::vector<double>;
inline const Colour red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, yellow{255, 255, 0},
    white{255, 255, 255};

/// Four fields: red and green above, blue and yellow below.
vips::VImage fields(int width = 64, int height = 48);

/// Saves by the name's ending; answers `path`.
QString save(const vips::VImage &picture, const QString &path, vips::VOption *options = nullptr);
/// The four fields in a file.
QString fields(const QString &path, int width = 64, int height = 48);

vips::VImage load(const QString &path);

/// The colours in the middles of the four fields, row by row, without transparency.
std::vector<Colour> fieldColours(const vips::VImage &picture);

/// True where no channel differs by more than `tolerance`.
bool areClose(const std::vector<Colour> &one, const std::vector<Colour> &other, double tolerance = 12);

/// Of a PNG chunk: its type and its content.
quint32 checksum(const QByteArray &chunk);

/// The PNG file with one more chunk, a type and its content, behind the pixels or before them.
QByteArray withChunk(const QByteArray &png, const QByteArray &chunk, bool isBehindPixels = false);

} // namespace KVTestPictures
