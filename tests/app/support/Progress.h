#pragma once

#include "MIDIOutManager.h"

#include <functional>
#include <optional>
#include <vector>

namespace orvim::test {

using Progress = std::vector<std::optional<double>>;

/// The progress that is shown while `action` runs.
inline Progress progressDuring(const MIDIOutManager& manager, const std::function<void()>& action)
{
    Progress values;
    const QObject context;
    QObject::connect(&manager, &MIDIOutManager::progressChanged, &context,
                     [&] { values.push_back(manager.progressFraction()); });
    action();
    return values;
}

/// What `count` messages show that leave one by one: rising to the end, then nothing.
inline Progress progressOf(int count)
{
    Progress values;
    for (int i = 1; i <= count; ++i)
        values.push_back(static_cast<double>(i) / count);
    values.push_back(std::nullopt);
    return values;
}

} // namespace orvim::test
