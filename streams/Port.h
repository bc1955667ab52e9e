// The common part of the ports that a script declares: what the host connects, and the hooks of a calculation.
// Not here: what a kind of port carries (MaterialPort, EnergyPort, InformationPort).
// Threads: the calculating thread only; what touches Python needs the interpreter lock.
#pragma once

#include "cobia/Adapters.h"
#include "engine/PyRef.h"

#include <string>

namespace orvane {

/// Something that holds on to objects of the host and can be told to let go.
class HostObjectHolder {
public:
    /// Drops every reference to objects of the host; what needs one afterwards fails with a clear error. The owner has
    /// struck the holder off its list, and the holder forgets the owner: a script may keep it for longer than the unit.
    virtual void releaseHostObjects() noexcept = 0;

protected:
    ~HostObjectHolder() = default;
};

/// What a port needs of the unit it belongs to.
class PortOwner {
public:
    /// A connection changed: the unit is to be validated again, and saved.
    virtual void portChanged() = 0;
    /// A warning for the user.
    virtual void warn(const std::string& text) = 0;
    /// Live wrappers register, so that nothing of the host outlives a call.
    virtual void addHolder(HostObjectHolder& holder) = 0;
    virtual void removeHolder(HostObjectHolder& holder) noexcept = 0;

protected:
    ~PortOwner() = default;
};

/// The version of the interfaces of what is connected to a port.
enum class CapeOpenVersion { v1_2 = 0 };

class Port : public COBIA::CapeOpenObject<Port, COBIA::UnitPortAdapter, COBIA::IdentificationAdapter> {
public:
    // ICapeUnitPort

    virtual COBIA::CapePortType portType() const = 0;
    COBIA::CapePortDirection portDirection() const;
    COBIA::Ref<COBIA::ICapeInterface> connectedObject() const { return connected_; }
    /// Throws when checkConnection does; the port keeps what it had.
    void connect(COBIA::ICapeInterface* object);
    void disconnect();

    // ICapeIdentification. The script gives the name; the host may not change it: code 106.

    std::string name() const { return name_; }
    void setName(const std::string& name);
    std::string description() const { return description_; }
    void setDescription(const std::string& description);

    bool isFeed() const { return isFeed_; }
    bool isOptional() const { return isOptional_; }
    bool isConnected() const { return static_cast<bool>(connected_); }

    /// Before the script's Calculate: forgets what a script specified in an earlier run.
    virtual void prepare() {}
    /// After a successful Calculate, on ports that are no feeds: checks what the script specified, warns of what is
    /// missing, and brings the host's object to it.
    virtual void finish() {}
    /// What the script finds under the port's name in unit.ports; empty when nothing is connected. Python.
    virtual PyRef scriptObject() = 0;
    /// True when the other port, of a later Configure, is this one with a new definition.
    virtual bool sameKind(const Port& other) const {
        return portType() == other.portType() && isFeed_ == other.isFeed_;
    }
    /// Takes the definition of a port of the same kind over; the connection stays.
    virtual void takeOver(const Port& other);

    /// The unit goes away or drops the port, which a host may still hold.
    void disown() noexcept { owner_ = nullptr; }

protected:
    Port(PortOwner& owner, std::string name, std::string description, bool isFeed, bool optional);

    /// Throws when the object cannot be connected here; the connection there is then stays as it was.
    virtual void checkConnection(COBIA::ICapeInterface* object) = 0;
    std::string errorSource() const override { return description_; }

    /// The unit; throws when it is gone.
    PortOwner& owner() const;

private:
    PortOwner* owner_;
    std::string name_;
    std::string description_;
    bool isFeed_;
    bool isOptional_;
    COBIA::Ref<COBIA::ICapeInterface> connected_;
};

}  // namespace orvane
