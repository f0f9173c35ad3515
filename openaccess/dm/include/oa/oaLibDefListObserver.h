#pragma once

#include "oaDMEnums.h"
#include "oaLibDefList.h"
#include "oaObserver.h"

namespace OpenAccess_4 {

/// Is told when libraries are opened by lists, when lists are saved and what is wrong in them.
template <>
class OA_API oaVersionedObserver<oaLibDefList, 1> : public oaBaseObserver {
public:
    explicit oaVersionedObserver(oaUInt4 priorityIn, oaBoolean enabledIn = true);
    ~oaVersionedObserver() override;

    /// Before the libraries of a list are opened; false keeps them from being opened.
    virtual oaBoolean onPreOpenLibs(oaLibDefList* defList);

    /// After that; getTopList() answers the list when openLibs() was called.
    virtual void onPostOpenLibs(oaLibDefList* defList);

    /// Something is wrong in the file of the list. `defList` is null where there is no list: the
    /// default file is missing or cannot be read. The answer has no effect.
    virtual oaBoolean onLoadWarnings(oaLibDefList* defList, const oaString& msg,
                                     oaLibDefListWarningTypeEnum type);

    virtual void onPreSave(oaLibDefList* defList);
    virtual void onPostSave(oaLibDefList* defList, oaBoolean succeeded);
    virtual void onPreSaveAs(oaLibDefList* defList, const oaString& path);
    virtual void onPostSaveAs(oaLibDefList* defList, const oaString& path, oaBoolean succeeded);

    static oaBoolean hasObservers();
    /// False as soon as one observer answers false; those behind it are not asked.
    static oaBoolean notifyPreOpenLibsObservers(oaLibDefList* defList);
    static void notifyPostOpenLibsObservers(oaLibDefList* defList);
    /// False when one observer answered false.
    static oaBoolean notifyLoadWarningsObservers(oaLibDefList* defList, const oaString& msg,
                                                 oaLibDefListWarningTypeEnum type);
    static void notifyPreSaveObservers(oaLibDefList* defList);
    static void notifyPostSaveObservers(oaLibDefList* defList, oaBoolean succeeded);
    static void notifyPreSaveAsObservers(oaLibDefList* defList, const oaString& path);
    static void notifyPostSaveAsObservers(oaLibDefList* defList, const oaString& path,
                                          oaBoolean succeeded);
};

} // namespace OpenAccess_4
