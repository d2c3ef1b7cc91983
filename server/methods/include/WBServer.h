#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
class Store;

/// Who calls, and how a long call is watched. Methods run on the caller's thread, which may be a
/// worker: the flag may be set and the callback is called there.
struct CallContext
{
    std::string user;
    const std::atomic<bool>* cancel = nullptr;
    /// Share done, 0 to 1, and what is being done.
    std::function<void(double, std::string_view)> progress;
};

/// Answers requests by method name, text to text. Fields are separated by "|"; no text that is
/// stored can hold one. Every field of an answer is followed by "|", and an empty text travels as
/// "__null__". Numbers have a "." and 15 digits; in requests "," is read as well.
///
/// Nothing that a caller sends throws, ends the server or changes data: an unknown method, a wrong
/// field, a cancelled call and a failing database are answered by the error marker
/// (CATENOWBCSCommonDefinitions::errMsgHeader) and a sentence that names the field.
///
/// Methods:
///
/// "WBCompPartGetInitialValues": has-instance (0 or 1), an empty field, root, instance, part,
///   version, count, that many instance names from the parent of the instance up to just below the
///   root. Answers what the main panel shows of that part in that place: document revisions, mass
///   types with values, density and material, material statistics, the twelve coefficients of its
///   place in the root's axes, properties.
///
/// "WBGetValueDetails": root, instance, part, version, count, that many instance names as above. On
///   the record's stream an unknown figure travels as 0; this tells which are known. Answers the
///   part's name, a count, then for each mass type, "Computed" first, its name and three flags (0
///   or 1): mass, centre of gravity, inertia.
///
/// "WBListRoots": request ignored. Answers a count, then for each part that nobody uses: part,
///   version, name, type (product, assembly, part, adjustment).
///
/// "WBListUses": part, version. Answers a count, then for each use below it, in stored order:
///   instance, part, version, name, type, quantity, has-uses (0 or 1), twelve coefficients: the
///   images of the x, y and z axis in the parent's axes, then the shift in mm.
///
/// "WBListMassTypes": request ignored. Answers a count, then for each mass type by order: name,
///   order, kind (claim, goal), category, default lower and upper precision in %, meaning.
class Server
{
public:
    /// Borrows the store, which must live as long as the server.
    explicit Server(Store& store);

    std::string Call(std::string_view method, std::string_view request, const CallContext& context);

    /// The service "ENOVIA5_GetObjectIdentifier". An identificator's text is the root and the
    /// instance names from the root down, joined by "|". input is root, configuration handler and,
    /// where the caller knows them, fields A and B: the part and the version that the identificator
    /// must lead to (B "---": A alone). For each identificator that leads somewhere the answer gets
    /// a record: "1" when there are instances below it, else "0"; instance name; part; version;
    /// count N; N instance names from the parent up to just below the root; with withPartName the
    /// part's name. An identificator that leads nowhere is taken off the list. Nothing is answered
    /// for another service, an input without root or handler, and a failing database.
    std::optional<std::string> RunObjectService(std::string_view service,
                                                std::vector<std::string>& identificators,
                                                std::string_view input, bool withPartName);

private:
    Store& m_store;
    std::mutex m_mutex; // callers on several threads take turns
};
} // namespace wb
