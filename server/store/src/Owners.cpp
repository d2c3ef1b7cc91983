#include "Owners.h"

namespace wb
{
std::string PartSubject(const Part& part)
{
    return "part " + part.identifier + " " + part.version;
}

std::string UseSubject(const Part& parent, std::string_view instance)
{
    std::string subject = "use " + parent.identifier + " " + parent.version + " / ";
    return subject.append(instance);
}

std::string SubjectOf(Database& database, OwnerKind kind, RowId owner)
{
    const bool isUse = kind == OwnerKind::Use;
    Statement& row = database.Kept(
        isUse ? "SELECT p.identifier, p.version, u.instance FROM use u JOIN part p ON p.id = "
                "u.parent WHERE u.id = ?"
              : "SELECT identifier, version, '' FROM part WHERE id = ?");
    row.Bind(owner);
    std::string subject;
    while (row.Step()) {
        Part part;
        part.identifier = row.Text();
        part.version = row.Text();
        subject = isUse ? UseSubject(part, row.Text()) : PartSubject(part);
    }
    return subject;
}
} // namespace wb
