// What every family of instruments can be asked to do, by the numbers of the operations, with what all families do
// alike. A driver is a class derived from this one that writes only what is special about its family; it keeps no state
// of its own, so that one object serves all entries of the family.
#pragma once

#include "core/Texts.h"

#include <QByteArray>
#include <QtGlobal>

namespace korvanel {

enum DeviceCommand : quint8
{
    kDevSettings = 0,
    kDevOpen = 1,
    kDevIdentify = 2,
    kDevConfigure = 3,
    kDevPrepare = 4,
    kDevSample = 5,
    kDevClose = 6,
    kDevReadTransformers = 7,
    kDevWriteTransformers = 8,
    kDevResetCounters = 9,
    kDevInfo = 10,
};

class InstrumentDriver
{
public:
    virtual ~InstrumentDriver() = default;

    /// Carries out an operation for `sDevice`, which is an entry of this family. Errors go into `sDevError`, as does a
    /// number that stands for no operation; a bad sample goes into the mask of `MeasuredRow`. Throws PortError.
    void Run(quint8 command) const;

protected:
    /// What came back when the instrument was asked who it is.
    struct Identity
    {
        QByteArray reply;          ///< empty: nobody is there
        bool isOfFamily = false;   ///< an instrument that this driver is for
        TextRef refusal = nullptr; ///< what is told of a stranger; null: that the instrument isn't found
    };

    virtual int DataBits() const { return 8; }
    /// Sets all parameters of the port that the project names.
    virtual void Settings() const;
    /// Opens the port that the project names now, which may be another one than at the last connection.
    virtual void Open() const;
    virtual Identity Identify() const = 0;
    /// Brings the instrument into the mode of the entry; called only after an identification on this connection.
    virtual void Configure() const {}
    /// Reads what a run needs before its first sample.
    virtual void Prepare() const {}
    /// Fills `MeasuredRow`.
    virtual void Sample() const;
    /// Asks for the block of an instrument that sends all its values at once, and keeps it as `sDevReply`. A block of
    /// another length makes the sample invalid and is told, unless a run still has patience; then there is nothing to
    /// decode.
    static bool TakeBlock(const QByteArray& request, double wait, qsizetype length);
    virtual void Close() const;
    virtual void ReadTransformers() const;
    virtual void WriteTransformers() const;
    virtual void ResetCounters() const;
    /// Reads model and number of the instrument into `sDeviceId`.
    virtual void ReadInfo() const;

private:
    void IdentifyAnew() const;
    void ConfigureIfDue() const;
};

} // namespace korvanel
