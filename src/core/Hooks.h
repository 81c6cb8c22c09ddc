// What a lower room wants of a higher one, which it can't include: the lower room calls a hook, and the composition
// root has said who answers. The answers stand in the application block, so that a fresh block has none; an asker
// without an answer gets the default of the hook. Answers tell their failures themselves, unless the hook says what it
// throws.
#pragma once

#include <functional>

namespace korvanel {

enum class Hook
{
    /// The window asks when a page is left, and when its own closing has been answered; the project answers by saving
    /// header and settings if they have changed. Always true: the page is left after a failed save too. Default: true.
    SaveIfDirty,

    /// The window asks at the end of the program; the project answers by closing what is open, after a question if it
    /// has changes. False if the user cancels, and the window stays then. Default: true.
    CloseProject,

    /// The project asks when it has read a file; the motor database answers by taking the machines of the file into the
    /// block. Always true; throws DbError for machines that can't be read, which makes the file one of a bad format.
    /// Default: true, with no machine taken.
    LoadMachines,

    /// The project asks when it goes on under another name; the motor database answers by putting the machines in use
    /// into that file. Always true. Default: true, with nothing put.
    CopyMachines,

    /// The window asks before each showing of the machine page; whoever knows a reason against it answers. False shows
    /// no page at all. The program sets no answer, for the page can do without a motor database. Default: true.
    AllowMachinePage,

    /// The page of the results asks, which stands below the output; the export answers by asking for a file and writing
    /// the evaluation to it. Always true; what it throws the page reports. Default: false, but the page doesn't ask
    /// where nobody answers: its button is disabled then.
    ExportEvaluation,

    /// Whoever has changed the sets asks if the project has a second machine (`bASMSim`), and so does the editor's
    /// button; the simulation answers by running that machine over the sets again. False after a failure, which is
    /// told. Default: true, with nothing run.
    RunSimulation,

    /// Pages that show results ask, once those of the measured machine are there; the simulation answers by bringing
    /// the results of the second machine up to date, if the project has one. False after a failure, which is told.
    /// Default: true, with nothing done.
    ProvideSimulation,
};

/// Says who answers a hook. A second answer replaces the first, and an empty one takes it away.
void SetHook(Hook which, std::function<bool()> answer);

bool HasHook(Hook which);

/// Asks, and returns the answer or the hook's default. What the answer throws comes through.
bool CallHook(Hook which);

/// The answer of a routine that has no outcome: true when it has run.
std::function<bool()> Done(std::function<void()> routine);

} // namespace korvanel
