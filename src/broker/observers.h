#pragma once

#include <memory>

#include <oa/oaDesignDB.h>

#include "broker/brokered_pcell.h"

namespace pcellBrokerClient {

/// Has the brokers told about libraries that were made, opened or closed.
class LibObserver : public oa::oaVersionedObserver<oa::oaLib> {
public:
    explicit LibObserver(std::shared_ptr<Brokers> brokers);

    void onPostCreate(oa::oaLib* lib) override;
    void onPostOpen(oa::oaLib* lib) override;
    void onPreClose(oa::oaLib* lib) override;

private:
    std::shared_ptr<Brokers> brokers_;
};

/// Has the brokers told about library definitions that were loaded.
class LibDefListObserver : public oa::oaVersionedObserver<oa::oaLibDefList> {
public:
    explicit LibDefListObserver(std::shared_ptr<Brokers> brokers);

    void onPostOpenLibs(oa::oaLibDefList* list) override;

protected:
    const std::shared_ptr<Brokers>& brokers() const { return brokers_; }

private:
    std::shared_ptr<Brokers> brokers_;
};

} // namespace pcellBrokerClient
