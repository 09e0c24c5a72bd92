#pragma once
// Controls on the headless elements that save into and restore from a property store: a new
// instance (InitProperties), restored instances made from a store, and a store that records the
// order of the writes or fails at a chosen one.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "platform/host/property_bag.h"
#include "platform/ui/text_metrics.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

// A store that keeps what MemoryPropertyBag keeps, remembers every write with its default, and
// fails with a file error at write number `failAt` (counting from 1; 0 never).
class RecordingStore final : public PropertyBag {
public:
    struct Write {
        std::string key;
        PropertyValue value, defaultValue;
    };
    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override {
        return held.ReadProperty(key, defaultValue);
    }
    void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) override {
        if (failAt != 0 && static_cast<int>(writes.size()) + 1 == failAt)
            throw Error(ErrorKind::File, 61, "Disk full");
        writes.push_back({key, value, defaultValue});
        held.WriteProperty(key, value, defaultValue);
    }
    std::vector<std::string> Keys() const {
        std::vector<std::string> keys;
        for (const Write& w : writes) keys.push_back(w.key);
        return keys;
    }
    MemoryPropertyBag held;
    std::vector<Write> writes;
    int failAt = 0;
};

class StoreTest : public ::testing::Test {
protected:
    StoreTest() {
        host.messages = &messages;
        host.screen = &screen;
        host.clock = &clock;
        host.parentForm = form;
        host.ambientFont = Font{"DejaVu Sans", 9.0f, false, false, false};
        host.propertyChanged = [this](const std::string& name) { changed.push_back(name); };
        form->setWindow(window);
    }

    std::unique_ptr<Tabulon12> NewInstance() { return std::make_unique<Tabulon12>(host, metrics, timers); }
    std::unique_ptr<Tabulon12> Restored(const PropertyBag& store) {
        return std::make_unique<Tabulon12>(host, metrics, timers, store);
    }
    static Tabulon12::Impl& S(Tabulon12& control) { return Tabulon12Probe::Of(control); }
    // The value held under a key, or nothing.
    static std::optional<PropertyValue> Held(const MemoryPropertyBag& store, const std::string& key) {
        if (!store.Has(key)) return std::nullopt;
        return store.ReadProperty(key, std::string());
    }

    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    ManualClock clock;
    std::shared_ptr<HostForm> form = std::make_shared<HostForm>("Form1");
    std::shared_ptr<HeadlessWindow> window = std::make_shared<HeadlessWindow>();
    HostServices host;
    std::vector<std::string> changed;
};

}  // namespace TabulonLib12::testing
