#pragma once

#include <QImage>
#include <QString>
#include <optional>

namespace marvello::testing {

/// How two pictures differ.
struct Difference {
    int pixels;
    QRect around;    ///< the smallest rectangle with all of them; empty if the sizes differ
    QImage picture;  ///< the reference in pale grey, what differs in red
};

/// Compares two pictures pixel by pixel; nothing if they show the same. How far a pixel may be off grows with
/// the contrast of the reference around it: another version of the font renderer shades the edges of letters
/// a little differently, but no ground has another colour and no line another place.
std::optional<Difference> difference(const QImage& painted, const QImage& reference);

/// Fails the running test if a picture differs from the reference of this name in tests/pictures/references,
/// and leaves both and their difference in the build tree. When references are renewed, such a picture
/// becomes the reference instead.
void expectPicture(const QString& name, const QImage& painted);

/// Renews the references instead of comparing with them.
void renewReferences();
/// Removes the references that no test has asked for; to be called when all have run.
void removeUnpainted();

}  // namespace marvello::testing
