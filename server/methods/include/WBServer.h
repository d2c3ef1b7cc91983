#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
class Computations;
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
///
/// "WBGetMassTypesAndAttrNames": request ignored. Answers XML: below the document element a
/// massType
///   element for each type that a computation can be asked for, "Computed" first, then the claims
///   by order, and an attrName element for each property that users gave to parts and uses, by
///   name. The attribute "name" holds the name.
///
/// "WBComputeVPMValues": six fields that are read past (has-instance, instance, part, version, then
/// a
///   count with that many path names, density priority, material), which matter where a part is
///   asked and not its product; then precision ("Active", "MostPrecise", "Computed" or a mass
///   type); update policy 0 (check), 1 (force: the product is read from the database anew) or 2
///   (assume) and behind 2 a level, a whole number from 0; entity, which must be 1, the root; root;
///   filter text ("0|No Filter", or a count, a name and that many lines); precision type 0, or 1
///   with value type (0 %, 1 kg), lower and upper, which then take the place of the deviations.
///   Answers what the whole product weighs: mass, lower and upper deviation, centre of gravity,
///   Ixx, Iyy, Izz, Iyz, Ixz, Ixy about it (products + integral); N, the names of N materials, for
///   each 3 and its density in kg/m3 or 2 and its density in kg/m2 (0: none), N masses; M, then
///   name and mass of M mass types. Storage units; what is not known travels as 0, and the first
///   warning says so.
///
/// "WBWarningMsg": request ignored. Answers the warnings of the caller's last computation, a line
///   each, and forgets them; an empty text where there are none. Lines begin with "- "; a line
///   that begins with "ERROR" says that there is no result to speak of. Never the error marker.
class Server
{
public:
    /// Borrows the store, which must live as long as the server.
    explicit Server(Store& store);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

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
    std::unique_ptr<Computations> m_computations; // products in memory, warnings not yet asked for
    std::mutex m_mutex;                           // callers on several threads take turns
};
} // namespace wb
