// A long operation over all sets of the project: the file open and the progress shown for the length of a scope.
#pragma once

#include <QtGlobal>

namespace korvanel {

class PassOverSets
{
public:
    PassOverSets();
    PassOverSets(const PassOverSets&) = delete;
    PassOverSets& operator=(const PassOverSets&) = delete;
    ~PassOverSets();

    /// Shows that so many of the sets are done.
    static void Advance(qint32 done);
};

} // namespace korvanel
