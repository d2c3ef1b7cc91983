#pragma once

#include <atomic>
#include <chrono>
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
    /// What time it is; empty: the system's clock.
    std::function<std::chrono::system_clock::time_point()> now = {};
};

/// Answers requests by method name, text to text. Fields are separated by "|"; no text that is
/// stored can hold one. Every field of an answer is followed by "|", and an empty text travels as
/// "__null__". Numbers have a "." and 15 digits; in requests "," is read as well.
///
/// Nothing that a caller sends throws or ends the server, and nothing but "WBApplyValues" and
/// "WBSaveManagement" changes data: an unknown method, a wrong field, a cancelled call and a
/// failing database are answered by the error marker (CATENOWBCSCommonDefinitions::errMsgHeader)
/// and a sentence that names the field.
///
/// Methods:
///
/// "WBCompPartGetInitialValues": has-instance (0 or 1), an empty field, root, instance, part,
///   version, count, that many instance names from the parent of the instance up to just below the
///   root. Answers what the main panel shows of that part in that place: document revisions, mass
///   types with values, density and material, an up-to-date flag, material statistics, the twelve
///   coefficients of its place in the root's axes, properties. "Computed" of an assembly is the sum
///   of what is below it by active values, as it was made last (flag 0: something has changed
///   since) and made now where it never was; the material statistics are those of that sum. Of a
///   leaf "Computed" is empty, the flag 1, and the statistics tell of its active values.
///
/// "WBCompPartCompute": a computation beside one part, in the grammar below. Answers "Computed" of
///   what was asked: mass, lower and upper deviation, centre of gravity, Ixx, Iyy, Izz, Ixz, Ixy,
///   Iyz about it (products + integral); K, the names of K materials, dimension (3 volume, 2
///   surface) and mass of each, the density of each (0: none or several); L, name and mass of L
///   mass types; the twelve coefficients of its place in the root's axes. An assembly is summed up
///   whatever its own values say. A leaf is size times density by the density that the request
///   asks for, without a size its active values; where the request names the most precise or one
///   mass type's values, it is those. What is not known travels as 0, and the first warning names
///   it.
///
/// "WBGetValueDetails": shown (0 or 1), then all fields of "WBCompPartCompute". On the record's
///   stream an unknown figure travels as 0; this tells what is known and where it comes from. The
///   part is always the one that the place names; "Computed" is with shown 0 what the initial
///   values carry, and with shown 1 what that computation answers, made now. Unknown numbers and
///   empty texts are "__null__". Answers in this order:
///   the part's name;
///   M, then for each of M sets, "Computed" first, the mass types by order behind it: name; where
///     mass, centre and inertia come from, each 0 unknown, 1 stated, 2 size times density, 3 lent,
///     4 summed up; who lends centre and inertia in sums (a mass type, or "Computed" for the sum
///     of what is below); precision 0 none, 1 stated, 2 the mass type's default; ten standard
///     uncertainties (mass, centre x, y, z, Ixx, Iyy, Izz, Ixy, Ixz, Iyz) as stated; source, its
///     date, author, note; three principal moments, the largest first;
///   of "Computed": leaves counted, leaves without mass, mass without centre, mass without inertia;
///     C, code and mass of C codes; T, mass type and mass of T mass types; growth allowance;
///   1 where own values of the asked node stand for what is below it, and then their mass type and
///     three times twelve figures (mass, lower, upper, centre, Ixx, Iyy, Izz, Ixy, Ixz, Iyz): own,
///     below, own less below; else 0;
///   1 and then ten standard uncertainties of "Computed" in the order of above and the share of its
///     mass (0 to 1) whose uncertainty nobody stated; else 0, as with policy 2;
///   W, then all W warnings of that computation in full, without "- ".
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
/// "WBGetMassTypesAndAttrNames": request ignored. Answers XML: below the document element an
///   element "massType" for each type that a computation can be asked for, "Computed" first, then
///   the claims by order, then the goals, and an element "attrName" for each property that users
///   gave to parts and uses, by name. The attribute "name" holds the name.
///
/// "WBComputeVPMValues": a computation of a whole product, in the grammar below with entity 1.
///   Answers mass, lower and upper deviation, centre of gravity, Ixx, Iyy, Izz, Iyz, Ixz, Ixy about
///   it (products + integral); N, the names of N materials, for each 3 and its density in kg/m3 or
///   2 and its density in kg/m2 (0: none), N masses; M, then name and mass of M mass types. Storage
///   units; what is not known travels as 0, and the first warning says so.
///
/// "WBMakeReport": kind (0 report, 1 distributive report, 2 material statistics); statistics of
/// part
///   instances (0 or 1; kind 2 alone looks at it); N and N picked instances, each by instance,
///   part, version, a count and that many path names from the parent up (none picked: all of the
///   root; one inside another counts once; instance and path empty: the root); V and V value names
///   out of Deviations, Centre, Inertia, Density, Materials, Volume, Types, Date, or "*" alone for
///   all; E and E property names, or "*" alone for all; then a computation of the root, in the
///   grammar below with entity 1. Answers XML without blanks between elements: a document element
///   "WB_Report", in it "PRC", the root, in it sections by weight code and part instances. Figures
///   are what a computation of that node answers, in storage units, everything in the root's axes,
///   inertia about each element's own centre, products + integral. What is unknown is an absent
///   attribute. docs/server.md lists all attributes in their order. A report assumes nothing:
///   update policy 2 is answered like 0.
///
/// What a user changes is pending at first: he alone sees it, in all methods, until it is saved or
/// given up. The unit of change is a quantity of an owner ("PartRef": a part version, "PartInst": a
/// use): of a mass type "mass", "centre", "inertia" or "precision", of the owner itself (mass type
/// "__null__") "active", "density", "material", "density order" or "property NAME". As texts:
/// numbers in storage units joined by ";" (centre x;y;z, inertia Ixx;Iyy;Izz;Ixy;Ixz;Iyz,
/// precision percent;LOWER;UPPER or absolute;LOWER;UPPER), or a word; what nobody stated is
/// "__null__". A place is has-instance, instance, part, version, a count with that many instance
/// names from the parent up, root.
///
/// "WBGetStatedValues": a place. Answers the part's name; leaf (0 or 1); standard part (0 or 1);
///   places of the part in the root, quantities multiplied; how many other roots hold it; M, the
///   names of all M materials; whether the use has sets of its own (0 or 1); a number that differs
///   after each change of what the caller has pending, and is 0 while nothing is; Q, then of each
///   of Q quantities: owner, mass type, quantity, text, the text that is stored, pending (0 or 1),
///   whether somebody else saved it since (0 or 1), who, when. Stated figures alone, nothing lent
///   or derived. docs/server.md tells which quantities in which order.
///
/// "WBApplyValues": a place; K, then of each of K quantities: owner, mass type, quantity, 1 stated
///   or 0 cleared, the text that was stored when the user saw it; then the text of a record as
///   clients send it back. The K quantities are taken from the record and become pending changes of
///   the caller; nothing else of the record counts. Answers "Apply|OK|n|", n quantities being
///   changed by it. All of them, or nothing and the sentence that names the field. A density or a
///   material from a place with has-instance 1 is the part's.
///
/// "WBPendingChanges": request ignored. Answers N, then of each of the caller's N pending changes,
///   the oldest first: subject ("part WING A"), fact ("mass type Weighed, mass"), the text that was
///   stored when he changed it, his text, the text that is stored now, whether that keeps him from
///   saving (0 or 1), who saved it, when, when he changed his.
///
/// "WBHistory": a place. Answers N, then of each of N changes of the part and of its use, the
///   newest first: when, who, what ("import", "save"), file, subject, fact, before, after.
///
/// "WBSaveManagement": "Save" stores all pending changes of the caller, or none of them: "Save|OK",
///   "Save|NA" where nothing is pending, "Save|FALSE" where somebody else saved one of the
///   quantities first, or the database refuses; everything is then still pending, and
///   "WBWarningMsg" says why. "Abort" gives them up: "Abort|OK", also where nothing is pending, or
///   "Save|FALSE". Any other request: "Save|FALSE". Never the error marker.
///
/// "WBWarningMsg": request ignored. Answers the warnings of the caller's last computation, or why
/// his
///   last saving was refused, a line each, and forgets them; an empty text where there are none.
///   Lines begin with "- "; a line that begins with "ERROR" says that there is no result to speak
///   of. Never the error marker.
///
/// A computation is asked for by: has-instance, instance, part, version, a count with that many
/// instance names from the parent up, density priority (0 W&B density first, 1 material first),
/// material ("__null__": its own); precision ("Active", "MostPrecise", "Computed" or a mass type);
/// update policy 0 (check), 1 (force: the product is read from the database anew) or 2 (assume) and
/// behind 2 a level, a whole number from 0; entity 0 (the instance and all below), 1 (the root) or
/// 2 (the part's own values alone); root; filter text ("0|No Filter", or a count, a name and that
/// many lines of I or X, instance, part, version, a count and that many path names); precision type
/// 0, or 1 with value type (0 %, 1 kg), lower and upper, which then take the place of the
/// deviations. With entity 1 the fields before the precision are read past. Where instance and
/// path are empty, the place is the root's.
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
