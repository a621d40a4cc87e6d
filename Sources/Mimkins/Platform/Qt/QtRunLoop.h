#pragma once

#include "Platform/Linux/DescriptorWatcher.h"
#include "Platform/RunLoop.h"

#include <QObject>

#include <memory>

namespace mimkins {

/// The main loop as Qt runs it. Made on the main thread, beside the application object.
class QtRunLoop final : public RunLoop, public DescriptorWatcher {
public:
    QtRunLoop();
    ~QtRunLoop() override;
    QtRunLoop(const QtRunLoop&) = delete;
    QtRunLoop& operator=(const QtRunLoop&) = delete;

    Date now() const override;
    void post(std::function<void()> work) override;
    Handle after(double seconds, std::function<void()> work) override;
    Handle every(double seconds, std::function<void()> work) override;
    Handle whenReadable(int descriptor, std::function<void()> readable) override;

private:
    Handle start(double seconds, bool once, std::function<void()> work);

    // Receives what is posted; its end drops what hasn't run.
    std::unique_ptr<QObject> target_;
};

} // namespace mimkins
