// Changing the net configuration of a project: the value tables are made anew for it, so recorded sets are lost, and
// the user is asked first.
#pragma once

namespace korvanel {

/// Changes to another configuration. False if the user refused or the file could not be changed; file and block are
/// then as they were.
bool ChangeNetConfiguration(int netConf);

} // namespace korvanel
