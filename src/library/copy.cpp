#include <string_view>

#include <ovalis/library.h>
#include <platform/path.h>

#include "core/boundary.h"
#include "library/files.h"

namespace ovalis {

namespace {

std::string joined(const std::string& directory, const std::string& name) {
    return directory + platform::pathSeparator() + name;
}

std::vector<std::string> entries(const std::string& directory, oa::oaDirIterModeEnum mode) {
    std::vector<std::string> names;
    oa::oaDirIter iterator(toOa(directory), mode);
    oa::oaString name;
    while (iterator.getNext(name)) {
        names.push_back(fromOa(name));
    }
    return names;
}

void copyDirectory(const std::string& source, const std::string& destination) {
    if (!oa::oaDir(toOa(source)).exists()) {
        return;
    }
    // Listed before the destination is made, which may lie inside the source.
    const std::vector<std::string> files = entries(source, oa::oacFilesDirIterMode);
    const std::vector<std::string> directories = entries(source, oa::oacDirsDirIterMode);
    const oa::oaDir target(toOa(destination));
    if (!target.exists()) {
        target.create();
    }
    for (const std::string& name : files) {
        oa::oaFile::copyFile(toOa(joined(source, name)), toOa(joined(destination, name)));
    }
    for (const std::string& name : directories) {
        copyDirectory(joined(source, name), joined(destination, name));
    }
}

// Of several marks only the first is removed.
void removeReadOnlyMark(const std::string& path) {
    constexpr std::string_view marked = "libReadOnly=\"Yes\"";
    std::string text = readoaFile(path);
    const std::size_t place = text.find(marked);
    if (place == std::string::npos) {
        return;
    }
    text.replace(place, marked.size(), "libReadOnly=\"No\"");
    writeoaFile(path, text, false);
}

} // namespace

LibPtr copyLib(const std::string& srcPath, const std::string& dstPath, const std::string& libName) {
    return atBoundary([&] {
        initOa();
        copyDirectory(srcPath, dstPath);
        removeReadOnlyMark(joined(dstPath, oaLibMarker));
        return openLib(dstPath, true, libName);
    });
}

} // namespace ovalis
