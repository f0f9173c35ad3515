#include "oa/oaDMObject.h"

#include "base/src/source.h"
#include "dm/src/library.h"
#include "oa/oaDMContainer.h"
#include "oa/oaDMFile.h"
#include "platform/atomic_file.h"

namespace OpenAccess_4 {

using namespace impl;

oaLib* oaDMObject::getLib() const {
    return libraryOf(this).handle();
}

oaBoolean oaDMObject::isContainer() const {
    return getType() != oacDMFileType;
}

void oaDMObject::getTempFile(oaString& path, oaBoolean sameFileSystem) const {
    const Library& library = libraryOf(this);
    const std::string directory = sameFileSystem ? platform::absolutePath(library.place().writePath)
                                                 : platform::temporaryDirectory();
    std::string answer;
    do
        answer = platform::temporaryPathFor(platform::joinPath(directory, "oa"));
    while (platform::exists(answer));
    path = answer.c_str();
}

oaCollection<oaDMFile, oaDMContainer> oaDMContainer::getDMFiles() const {
    Library& library = libraryOf(this, oacReadLibAccess);
    if (getType() == oacViewType)
        throw oaDMError(oacInvalidContainer, recordOf<ViewRecord>(this).name.c_str());
    return collectionOf<oaCollection<oaDMFile, oaDMContainer>>(library.files(locationOf(this).ref));
}

} // namespace OpenAccess_4
