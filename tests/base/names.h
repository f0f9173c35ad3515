#pragma once

#include <oa/oaBase.h>

#include <random>
#include <string>
#include <vector>

namespace ovalis::test {

template <class Name>
std::string spelled(const Name& name, const oa::oaNameSpace& ns = oa::oaNativeNS()) {
    oa::oaString text("before");
    name.get(ns, text);
    return std::string(text);
}

/// The id of the database's refusal; 0 when there was none.
template <class Action>
oa::oaUInt4 refusal(Action action) {
    try {
        action();
    } catch (const oa::oaError& error) {
        return error.getMsgId();
    }
    return 0;
}

/// All texts of one to three characters of the alphabet.
inline std::vector<std::string> shortTexts(const std::string& alphabet) {
    std::vector<std::string> texts;
    for (const char first : alphabet) {
        texts.push_back({first});
        for (const char second : alphabet) {
            texts.push_back({first, second});
            for (const char third : alphabet)
                texts.push_back({first, second, third});
        }
    }
    return texts;
}

/// Texts of any bytes, and longer ones of the characters that mean something in names.
inline std::vector<std::string> randomTexts() {
    std::mt19937 random(20240229);
    const std::string alphabet = "ab1/\\[]{}(),*:<>#2f0 .$_";
    std::vector<std::string> texts;
    for (int i = 0; i < 3000; ++i) {
        std::string any(1 + random() % 20, 'x');
        for (char& c : any)
            c = static_cast<char>(1 + random() % 255);
        texts.push_back(any);
        std::string structured(1 + random() % 12, 'x');
        for (char& c : structured)
            c = alphabet[random() % alphabet.size()];
        texts.push_back(structured);
    }
    return texts;
}

inline std::vector<std::string> nastyTexts() {
    std::vector<std::string> texts = shortTexts("aZ0_#23./\\[]{},*:<>() %$-\"`\x01\x7f\xc3");
    for (const std::string& text : randomTexts())
        texts.push_back(text);
    for (const char* text : {"a/b/c",
                             "a/b[3]",
                             "a[3]/b",
                             "a[3:0]",
                             "a[3:0:2]",
                             "a[3:0]/b",
                             "{a,b}",
                             "{2*a,b[3]}",
                             "{a/b,c[1:0]}",
                             "a\\/b",
                             "a\\[3]",
                             "\\{a,b}",
                             "a\\\\\\/b",
                             "a#2fb",
                             "a#232fb",
                             "a[03]",
                             "i[2]/j[3]/k[4:5]",
                             "begin",
                             "signal",
                             "con",
                             "a#00",
                             "a#2300",
                             "a__b",
                             "_a",
                             "a_"})
        texts.push_back(text);
    return texts;
}

} // namespace ovalis::test
