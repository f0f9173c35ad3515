#pragma once

#include <map>
#include <string>

#include "comparison/difference.h"

namespace comparison {

/// What there is to say about an object: texts by name. Two objects are alike when their texts are.
class Fields {
public:
    struct Field {
        std::string text;
        /// The object can have any number of its kind, as of properties.
        bool isItem = false;
    };

    /// Something that every object of the kind has, or may have one of. An empty text is none.
    void set(const std::string& name, std::string text);

    /// One of the things that come with names of their own.
    void add(const std::string& name, const std::string& text);

    /// Takes over those of `fields` whose names are new.
    void take(const Fields& fields) { all_.insert(fields.all_.begin(), fields.all_.end()); }

    const std::map<std::string, Field>& all() const { return all_; }

private:
    std::map<std::string, Field> all_;
};

/// Tells each field that differs.
void compareFields(const Place& place, const std::string& object, const Fields& was,
                   const Fields& is);

/// All fields as one text, equal for equal fields only.
std::string textOf(const Fields& fields);

} // namespace comparison
