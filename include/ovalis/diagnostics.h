#pragma once

#include <memory>
#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>

namespace ovalis {

class MessageObservers;

/// Gathers the warnings and errors that the database reports, and renders them as a report.
///
/// A message is a line in a paragraph (a cell view, a layer, a kind of conflict ...) of a chapter,
/// and the chapter is the origin of the message.
///
/// - Make one before the database is used: from then until it is destroyed it observes the origins
///   that the environment variable "TESSA_OAINFO" names, without it pcells and library definitions.
/// - `addMessage` adds what the database does not report by itself.
/// - `getMessageLog("all-wh")` gives the whole report, `getLines` the messages of one paragraph.
///
/// "TESSA_OAINFO" holds names of origins with ':' between them. After "all" at the beginning, which
/// stands for every origin but the error channel, or "alldbg", which stands for every origin, the
/// names are those that are left out. "0" collects nothing.
///
/// Share one by `std::shared_ptr`. Not for use by several threads.
class OVALIS_API msgCollector {
public:
    /// Where messages come from. The enumerators are the names of the origins, too.
    enum OriginType : unsigned int {
        Iprop = 1,            ///< properties of instances
        LCprop,               ///< properties of library cells
        Layer,                ///< layers
        Pcell,                ///< evaluation of pcells; these messages are errors
        LibDefs,              ///< library definition files
        GroupDef,             ///< group definitions
        AppDef,               ///< application-defined values
        DerivedLayerDef,      ///< derived layer definitions
        DerivedLayerParamDef, ///< parameters of derived layers
        Tech,                 ///< technologies
        ErrChannel            ///< the error channel of the database
    };

    /// Returns the name of an origin, "Unknown" for any other value.
    static std::string originTypeToName(OriginType origin);

    /// Returns the origin of exactly this name, 12 for any other text and for null.
    static OriginType originNameToType(const char* name);

    /// Returns how a reader is told of a chapter, for example "PCell errors".
    static std::string keyNameToDisplayName(const std::string& key);

    /// Makes an empty collector that observes the origins that "TESSA_OAINFO" names now.
    msgCollector();

    /// Copies the messages and the origins that are active. The copy observes nothing.
    msgCollector(const msgCollector& other);

    /// Takes over messages and active origins. What this collector observes stays what it was, and
    /// is recorded as long as its origin is active.
    msgCollector& operator=(const msgCollector& other);

    /// Ends the observation. While the error channel is active, writes the whole report and a line
    /// end to standard error.
    ~msgCollector();

    /// Returns true when messages of `origin` are wanted. Who records messages asks before.
    bool isCollectorActive(OriginType origin) const;

    /// Returns true when anything is wanted that is not of the error channel.
    bool isActive() const;

    /// Adds `line` to the paragraph `key` of the chapter of `origin`, whether it is active or not.
    ///
    /// A line that the paragraph has already is dropped. So is every line of a pcell whose
    /// paragraph begins with "Error[3]:".
    void addMessage(OriginType origin, const std::string& key, const std::string& line);

    /// Removes all messages.
    void clear();

    /// Returns true when there is any message of pcells.
    bool containsErrors() const;

    /// Renders a part of the report, which is empty when it has no messages.
    ///
    /// | Key             | Part                                                              |
    /// |-----------------|-------------------------------------------------------------------|
    /// | "all-wh"        | all chapters under their keys, between a head and an end line     |
    /// | "all"           | all chapters under their keys                                     |
    /// | "warning"       | the chapters of `LibDefs` and of "conflict"                       |
    /// | "conflict"      | the chapters of the definitions and of technologies, see `OriginType` |
    /// | key of a chapter | that chapter                                                     |
    ///
    /// In the last three, chapters stand under their display names, and what ends a line within the
    /// key of a paragraph is left out.
    std::string getMessageLog(const std::string& key) const;

    /// Renders one paragraph, without indentation; empty when there is none.
    std::string getMessageLog(const std::string& chapterKey, const std::string& paragraphKey) const;

    /// Returns the keys of the chapters that have messages, in byte order.
    std::vector<std::string> getAvailableChapterKeys_ordered() const;

    /// Returns the keys of the pcells with messages, in byte order.
    std::vector<std::string> getAvailableErrorKeys() const;

    /// Returns the keys of the paragraphs of a chapter, in byte order; none for a missing one.
    std::vector<std::string> getAvailableParagraphKeys(const std::string& chapterKey) const;

    /// Returns the lines of a paragraph, in the order of their arrival; none for a missing one.
    std::vector<std::string> getLines(const std::string& chapterKey,
                                      const std::string& paragraphKey) const;

    /// Returns `prefix`, the first line of a paragraph and a line end; empty for a missing one.
    std::string getItemMessageHead(const std::string& chapterKey, const std::string& paragraphKey,
                                   const std::string& prefix) const;

    /// Returns for each line of a paragraph `prefix`, the line and a line end; empty for a missing
    /// paragraph.
    std::string getItemMessageLog(const std::string& chapterKey, const std::string& paragraphKey,
                                  const std::string& prefix) const;

private:
    struct Content;

    void initializeActiveCollectors();
    void setCollectorActive(OriginType origin, bool active);

    std::unique_ptr<Content> content_;
    std::unique_ptr<MessageObservers> observers_;
};

/// Holds an open design for as long as it is used, with a collector of what is met on the way.
///
/// - `OaDesignSAC design(oaDesign::open(...));` takes the design, which may be null.
/// - When it goes, a modified design that is open for writing is saved, and the design is closed. A
///   design that was closed already is left alone.
/// - Moving leaves the source without design and without collector.
///
/// The collector observes from here on; what `open` itself met is known to collectors that were
/// made before. A design that cannot be saved or closed when its handle goes ends the process: save
/// before, to meet the failure as an exception.
class OVALIS_API OaDesignSAC {
public:
    /// Holds `design` and makes a collector.
    explicit OaDesignSAC(oa::oaDesign* design);

    OaDesignSAC(OaDesignSAC&& other) noexcept;
    /// Ends the use of the design held so far, and takes that of `other`.
    OaDesignSAC& operator=(OaDesignSAC&& other) noexcept;
    OaDesignSAC(const OaDesignSAC&) = delete;
    OaDesignSAC& operator=(const OaDesignSAC&) = delete;
    ~OaDesignSAC();

    /// Returns the design; null when there is none.
    oa::oaDesign* get() const noexcept { return design_; }

    /// Gives the design.
    /// @throws std::runtime_error  there is none.
    oa::oaDesign& operator*() const;

    /// Gives the design.
    /// @throws std::runtime_error  there is none.
    oa::oaDesign* operator->() const;

    /// Returns the collector, which lives on when the handle goes; null for a moved-from handle.
    std::shared_ptr<msgCollector> sharedMessages() const { return messages_; }

    /// Adds a line with name and value of each property to the paragraph `key`, whether `origin` is
    /// active or not.
    /// @throws Exception  the database failed.
    void recordProperties(msgCollector::OriginType origin, const oa::oaString& key,
                          oa::oaIter<oa::oaProp> properties);

private:
    oa::oaDesign* design_;
    std::shared_ptr<msgCollector> messages_;
};

} // namespace ovalis
