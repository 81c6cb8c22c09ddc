#include "core/Hooks.h"

#include "core/Common.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace korvanel {

namespace {

struct HookDefault
{
    Hook which;
    bool answer;
};

constexpr HookDefault kDefaults[] = {
    {.which = Hook::SaveIfDirty, .answer = true},      {.which = Hook::CloseProject, .answer = true},
    {.which = Hook::LoadMachines, .answer = true},     {.which = Hook::CopyMachines, .answer = true},
    {.which = Hook::AllowMachinePage, .answer = true}, {.which = Hook::ExportEvaluation, .answer = false},
    {.which = Hook::RunSimulation, .answer = true},    {.which = Hook::ProvideSimulation, .answer = true},
};

bool DefaultOf(Hook which)
{
    for (const HookDefault& entry : kDefaults)
        if (entry.which == which)
            return entry.answer;
    throw std::out_of_range("no default of hook " + std::to_string(static_cast<int>(which)));
}

} // namespace

void SetHook(Hook which, std::function<bool()> answer)
{
    App().Hooks[which] = std::move(answer);
}

bool HasHook(Hook which)
{
    const auto hook = App().Hooks.find(which);
    return hook != App().Hooks.end() && hook->second;
}

bool CallHook(Hook which)
{
    return HasHook(which) ? App().Hooks.at(which)() : DefaultOf(which);
}

std::function<bool()> Done(std::function<void()> routine)
{
    return [routine = std::move(routine)] {
        routine();
        return true;
    };
}

} // namespace korvanel
