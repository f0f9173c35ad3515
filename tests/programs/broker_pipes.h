#pragma once

#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <platform/environment.h>
#include <platform/pipe.h>
#include <platform/process.h>
#include <platform/text.h>

// The broker's side of the pipes, for the small brokers that tests start. What they are to do
// stands in environment variables.

/// One request, as it came.
struct Request {
    unsigned char command;
    std::string bytes;              ///< all of them, the command first
    std::vector<std::string> texts; ///< those that stand before a parameter array
};

class BrokerPipes {
public:
    BrokerPipes(int count, char** values) : arguments_(platform::utf8Arguments(count, values)) {
        input_ = open(arguments_.at(1), platform::PipeDirection::read);
        output_ = open(arguments_.at(2), platform::PipeDirection::write);
    }

    const std::vector<std::string>& arguments() const { return arguments_; }

    /// The next request; nothing when the host has gone.
    std::optional<Request> next() {
        request_ = {};
        unsigned char command = 0;
        if (!read(command)) {
            return std::nullopt;
        }
        request_.command = command;
        const int texts = command == 4 ? 3 : command == 0 ? 0 : 1;
        for (int i = 0; i < texts; ++i) {
            request_.texts.push_back(readText());
        }
        if (command == 4) {
            readParams();
        }
        return ended_ ? std::nullopt : std::optional(request_);
    }

    /// False when the host has gone.
    bool write(const std::string& bytes) { return output_->write(bytes.data(), bytes.size()); }

private:
    static std::unique_ptr<platform::PipeStream> open(const std::string& text,
                                                      platform::PipeDirection direction) {
        platform::PipeEnd end = platform::pipeEndFromText(text);
        platform::StreamDescriptor descriptor = platform::openDescriptor(end, direction);
        return std::make_unique<platform::PipeStream>(platform::openStream(descriptor, direction));
    }

    bool read(unsigned char& value) {
        if (next_ == block_.size()) {
            block_.resize(4096);
            block_.resize(input_->read(block_.data(), block_.size()));
            next_ = 0;
        }
        ended_ = block_.empty();
        value = ended_ ? 0 : static_cast<unsigned char>(block_[next_++]);
        if (!ended_) {
            request_.bytes += static_cast<char>(value);
        }
        return !ended_;
    }

    std::string readText() {
        std::string text;
        for (unsigned char c = 0; read(c) && c != 0;) {
            text += static_cast<char>(c);
        }
        return text;
    }

    std::uint32_t readInteger() {
        std::uint32_t value = 0;
        unsigned char byte = 0;
        for (int shift = 0; shift < 32 && read(byte); shift += 8) {
            value |= std::uint32_t{byte} << shift;
        }
        return value;
    }

    void skip(std::uint32_t count) {
        unsigned char byte = 0;
        while (count-- > 0 && read(byte)) {
        }
    }

    void readParams() {
        for (std::uint32_t count = readInteger(); count > 0 && !ended_; --count) {
            readText();
            unsigned char type = 0;
            read(type);
            constexpr std::uint32_t sizes[] = {4, 4, 0, 0, 8, 1, 8};
            if (type == 2 || type == 3) {
                readText();
            }
            skip(type == 3 ? readInteger() : sizes[type % 7]);
        }
    }

    std::vector<std::string> arguments_;
    std::unique_ptr<platform::PipeStream> input_;
    std::unique_ptr<platform::PipeStream> output_;
    std::string block_;
    std::size_t next_ = 0;
    bool ended_ = false;
    Request request_{};
};

/// What the test says under `name`.
inline std::string setting(const std::string& name, const std::string& fallback = "") {
    return platform::environmentVariable("TEST_BROKER_" + name).value_or(fallback);
}

inline void appendToFile(const std::string& path, const std::string& bytes) {
    if (!path.empty()) {
        std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
    }
}

/// Text of an answer to an evaluation, with the status in front and the zero byte behind.
inline std::string evaluationAnswer(char status, const std::string& text) {
    return status + text + '\0';
}

/// What a sound broker answers that takes every type and fails every evaluation with the text
/// FAILURE, or with its own number and the name of the cell; or that has evaluated into the file
/// EVALUATED.
inline std::string plainAnswer(const Request& request) {
    switch (request.command) {
    case 0:
        return ":";
    case 3:
        return "\1";
    case 4:
        if (const std::string path = setting("EVALUATED"); !path.empty()) {
            return evaluationAnswer('\1', path);
        }
        return evaluationAnswer('\0',
                                setting("FAILURE", std::to_string(platform::currentProcessId()) +
                                                       " " + request.texts[1]));
    default:
        return "";
    }
}
