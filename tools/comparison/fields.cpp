#include "comparison/fields.h"

namespace comparison {
namespace {

const std::string none = "none";

const std::string& orNone(const std::string& text) {
    return text.empty() ? none : text;
}

void tellOne(const Place& place, const std::string& object, const std::string& name,
             const Fields::Field* was, const Fields::Field* is) {
    using Kind = Difference::Kind;
    if (was != nullptr && is != nullptr) {
        if (was->text != is->text)
            place.tell({Kind::changed, "", object, name, orNone(was->text), orNone(is->text)});
        return;
    }
    const Fields::Field& only = was != nullptr ? *was : *is;
    const std::string wasText = was != nullptr ? was->text : "";
    const std::string isText = is != nullptr ? is->text : "";
    if (only.isItem)
        place.tell(
            {is != nullptr ? Kind::added : Kind::removed, "", object, name, wasText, isText});
    else if (!only.text.empty())
        place.tell({Kind::changed, "", object, name, orNone(wasText), orNone(isText)});
}

} // namespace

void Fields::set(const std::string& name, std::string text) {
    all_[name] = {std::move(text), false};
}

void Fields::add(const std::string& name, const std::string& text) {
    const auto [found, isNew] = all_.try_emplace(name, Field{text, true});
    if (isNew)
        return;
    // Of several with one name no order counts.
    std::string& known = found->second.text;
    known = known < text ? known + "; " + text : text + "; " + known;
}

void compareFields(const Place& place, const std::string& object, const Fields& was,
                   const Fields& is) {
    auto left = was.all().begin();
    auto right = is.all().begin();
    while (left != was.all().end() || right != is.all().end()) {
        const bool noLeft = left == was.all().end();
        const bool noRight = right == is.all().end();
        const bool takeLeft = !noLeft && (noRight || left->first <= right->first);
        const bool takeRight = !noRight && (noLeft || right->first <= left->first);
        tellOne(place, object, takeLeft ? left->first : right->first,
                takeLeft ? &left->second : nullptr, takeRight ? &right->second : nullptr);
        if (takeLeft)
            ++left;
        if (takeRight)
            ++right;
    }
}

std::string textOf(const Fields& fields) {
    std::string text;
    for (const auto& [name, field] : fields.all())
        text += name + '\0' + field.text + '\0';
    return text;
}

} // namespace comparison
