#pragma once

#include "ProgramRun.h"
#include "WBStore.h"

#include <memory>
#include <string>
#include <vector>

/// A folder with a database p.db: the product PLANE holds a WING of 10 kg and a TAIL with a FIN of
/// 4 kg, the product GLIDER another such WING. What users change in it is put there by the store,
/// as the main panel's Apply does.
class ChangedPlane : public ProgramRun
{
protected:
    ChangedPlane()
    {
        folder.Write("plane.csv",
                     "parent,instance,part,active,mass_type,mass [kg],lower_pct [%],upper_pct [%]\n"
                     ",,PLANE,,,,,\n"
                     "PLANE,left,WING,yes,Weighed,10,1,2\n"
                     "PLANE,tail,TAIL,,,,,\n"
                     "TAIL,fin,FIN,yes,Weighed,4,,\n"
                     ",,GLIDER,,,,,\n"
                     "GLIDER,only,WING,,,,,\n");
        EXPECT_EQ(Run("import plane.csv --into p.db --user kim").status, 0);
    }

    std::unique_ptr<wb::Store> Store() const { return wb::Store::Open(folder.At("p.db")).store; }
    wb::RowId Part(const char* identifier) const { return Store()->FindPart(identifier, "A")->id; }
    wb::RowId Use(const char* parent, const char* instance) const
    {
        return Store()->FindUse(Part(parent), instance)->id;
    }
    void Change(const std::string& user, const char* part, const wb::Quantity& quantity,
                const std::string& seen, const std::string& after) const
    {
        Store()->PutPending(user, {{wb::OwnerKind::Part, Part(part), quantity, seen, after, {}}});
    }
    void ChangeUse(const std::string& user, const char* parent, const char* instance,
                   const wb::Quantity& quantity, const std::string& seen,
                   const std::string& after) const
    {
        Store()->PutPending(
            user, {{wb::OwnerKind::Use, Use(parent, instance), quantity, seen, after, {}}});
    }
    /// The mass of the WING in kg becomes another one.
    void ChangeWing(const std::string& user, const std::string& mass) const
    {
        Change(user, "WING", kWeighed, "10", mass);
    }
    void SaveAs(const std::string& user) const { EXPECT_GT(Store()->SavePending(user).saved, 0U); }
    std::string MassOfWing() const
    {
        return wb::QuantityText(Store()->CommittedPart(Part("WING")).part, kWeighed);
    }

    inline static const wb::Quantity kWeighed{"Weighed", "mass"};
};
