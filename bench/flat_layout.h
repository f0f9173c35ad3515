#pragma once

#include "content.h"

#include <string>

/// The anchors of saving and opening: the same content as arrays of plain numbers in a file,
/// without names, checks or objects.
namespace bench {

struct FlatLayer {
    std::vector<Box> rectangles;
    std::vector<Octagon> octagons;
};

using FlatLayout = std::array<FlatLayer, kLayers>;

FlatLayout flatLayout(std::size_t shapes = kShapes);

/// Writes a file that must not exist.
void writeFlat(const FlatLayout& layout, const std::string& path);

/// Writes a temporary file, flushes it to the disk and renames it to `path`.
void replaceFlat(const FlatLayout& layout, const std::string& path);

/// Reads the file into `buffer`, which keeps its memory for the next time, and visits every box
/// where it lies.
BoxSum visitFlatInPlace(const std::string& path, std::vector<std::byte>& buffer);

/// Objects with virtual functions, those of one layer and kind side by side, as a reader of the
/// flat file would build them for its callers.
class FlatObjects {
public:
    FlatObjects();
    ~FlatObjects();

    void read(const std::string& path, std::vector<std::byte>& buffer);
    BoxSum visit() const;

private:
    struct Shape;
    struct Rectangle;
    struct Polygon;
    struct Layer;
    std::vector<Layer> layers_;
};

} // namespace bench
