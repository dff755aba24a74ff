#pragma once
// Who is told how far a print has come, and may stop it.

namespace velm {

class Avancement {
public:
    virtual ~Avancement() = default;
    /// So many pages are done, of so many in all; 0: nobody knows. False when the user has had enough.
    virtual bool page(int faites, int toutes) = 0;
    /// It is over, however it has ended.
    virtual void finit() = 0;
};

} // namespace velm
