#pragma once

#include "content.h"

#include "oa/oaDesignDB.h"

#include <string>

namespace oa = OpenAccess_4;

namespace bench {

/// The purpose that everything is drawn for.
inline constexpr oa::oaPurposeNum kDrawing = 0xFFFFFFFF;

/// An open library with write access, used through the public interface.
class DesignLibrary {
public:
    /// Opens the library in that directory, or makes it.
    explicit DesignLibrary(const std::string& path);
    ~DesignLibrary();
    DesignLibrary(const DesignLibrary&) = delete;
    DesignLibrary& operator=(const DesignLibrary&) = delete;

    /// A new, empty layout of that cell.
    oa::oaDesign* create(const std::string& cell) { return open(cell, 'w'); }
    oa::oaDesign* open(const std::string& cell, char mode);

    /// The file of the layout.
    std::string fileOf(const std::string& cell) const;

private:
    std::string path_;
    oa::oaLib* lib_ = nullptr;
};

/// Draws a content of that many shapes into an empty design.
void drawContent(oa::oaDesign* design, std::size_t shapes = kShapes);

/// Asks every shape of the block for its box.
BoxSum visitBoxes(const oa::oaBlock* block);

} // namespace bench
