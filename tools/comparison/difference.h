#pragma once

#include <string>

namespace comparison {

/// One thing that differs.
struct Difference {
    enum class Kind { added, removed, changed, moved, renamed };

    Kind kind = Kind::changed;
    /// "library", "technology", a cell ("coil") or a cell view ("coil/layout").
    std::string place;
    /// The object as the first side has it, as the second when it was added: `net "a"`.
    std::string object;
    /// What of the object differs; empty when it is the object itself.
    std::string attribute;
    std::string was;
    std::string is;

    friend bool operator==(const Difference&, const Difference&) = default;
};

/// "added", "removed", "changed", "moved" or "renamed".
const char* nameOf(Difference::Kind kind);

/// One line for people, without the line end. Long texts are cut down to where they differ.
std::string textOf(const Difference& difference);

/// Takes what a comparison finds, while it goes on.
class Listener {
public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    virtual ~Listener() = default;

    virtual void differs(const Difference& difference) = 0;

    /// Something could not be read on one side and was not compared.
    virtual void cannotRead(const std::string& place, const std::string& reason) = 0;
};

/// Tells a listener what differs in one place.
class Place {
public:
    Place(std::string name, Listener& listener) : name_(std::move(name)), listener_(listener) {}

    const std::string& name() const { return name_; }
    Listener& listener() const { return listener_; }

    void added(const std::string& object) const;
    void removed(const std::string& object) const;
    void renamed(const std::string& object, const std::string& name) const;
    /// A way in words: "(5, 0)".
    void moved(const std::string& object, const std::string& way) const;
    void tell(Difference difference) const;

private:
    std::string name_;
    Listener& listener_;
};

} // namespace comparison
