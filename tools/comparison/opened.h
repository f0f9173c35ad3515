#pragma once

#include <stdexcept>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>

#include "comparison/difference.h"

namespace comparison {

/// Closes a database that was opened when the scope ends.
template <class Database>
class Opened {
public:
    explicit Opened(Database* database) : database_(database) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        try {
            if (database_ != nullptr)
                database_->close();
        } catch (const oa::oaException&) {
            // It stays open until its library closes.
        }
    }

    explicit operator bool() const { return database_ != nullptr; }
    const Database& operator*() const { return *database_; }

private:
    Database* database_;
};

/// Runs a part of a comparison. When something cannot be read, the listener is told.
template <class Part>
void guarded(const Place& place, Part part) {
    const auto tell = [&place](const char* reason) {
        place.listener().cannotRead(place.name(), reason);
    };
    try {
        part();
    } catch (const oa::oaException& error) {
        tell(ovalis::Exception(error).what());
    } catch (const oaCommon::IException& error) {
        tell(ovalis::Exception(error).what());
    } catch (const std::runtime_error& error) {
        tell(error.what());
    }
}

} // namespace comparison
