#pragma once

#include "WBKnown.h"
#include "WBPending.h"
#include "WBProduct.h"
#include "WBProductPieces.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
class Database;
class Transaction;

/// The database could not answer; what() is a sentence for the user that names the file. Reads of a
/// Store throw it; Server::Call turns it into an answer.
class StoreError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A part version and its place in the database.
struct StoredPart
{
    RowId id = 0;
    Part part;
};

/// What a list of parts or uses shows, without values.
struct PartLine
{
    RowId id = 0;
    std::string identifier;
    std::string version;
    std::string name;                   // the identifier where the part has none
    PartType type = PartType::Unstated; // the effective type, never Unstated
    bool hasUses = false;
};

/// One use below a part, without values.
struct UseLine
{
    RowId id = 0;
    std::string instance;
    int quantity = 1;
    Placement placement;
    PartLine part;
};

/// One use with everything that was stated about it. Use::parent and Use::part are not set.
struct StoredUse
{
    RowId id = 0;
    RowId parent = 0;
    RowId part = 0;
    Use use;
};

/// How many different leaves below a node have a density in their place, and how many have none.
struct DensityCount
{
    std::int64_t with = 0;
    std::int64_t without = 0;
};

/// Where a part stands in the products of the database.
struct PartPlaces
{
    double inRoot = 0.0;        // in that root, the quantities of all uses above multiplied
    std::size_t otherRoots = 0; // so many other roots hold it
};

/// What was stored, and what takes its place.
struct ChangedFact
{
    OwnerKind kind = OwnerKind::Part;
    RowId owner = 0;     // 0: an older version of the program kept this without it
    std::string subject; // "part P A", "use P A / left"
    std::string fact;    // "mass type Weighed, mass"; empty: the owner itself
    std::string before;
    std::string after; // empty: it is gone

    /// "part P A, mass type Weighed, mass"
    std::string What() const { return subject + (fact.empty() ? "" : ", ") + fact; }
};

/// An entry of the history: who changed what, when, from which file.
struct HistoryEntry
{
    std::string when; // UTC, yyyy-mm-dd hh:mm:ss
    std::string who;
    std::string what;    // "import", "mass types", "save"
    std::string subject; // a file; empty where somebody saved his changes
    std::string checksum;
    std::vector<ChangedFact> changes; // what an import added where nothing was is not among them
};

/// What becomes of a fact that a table states and the database holds differently.
enum class KnownFacts
{
    Update, // the table's takes its place; the history keeps both
    Refuse  // nothing is imported
};

struct ImportOptions
{
    std::string user;
    std::string file; // as the messages and the history name it
    std::string checksum;
    KnownFacts known = KnownFacts::Update;
    /// A product root of the table: stored uses in it, and in the assemblies that the table places
    /// below it, are removed where the table lacks them. Empty: nothing is removed.
    std::string replace = {};
};

/// What an import did.
struct ImportCounts
{
    std::size_t newParts = 0;
    std::size_t changedParts = 0;
    std::size_t unchangedParts = 0;
    std::size_t newUses = 0;
    std::size_t changedUses = 0;
    std::size_t unchangedUses = 0;
    std::size_t removedUses = 0;
    /// Parts of this import that nobody uses, and those that lost their last use: the product
    /// roots, as "identifier version".
    std::vector<std::string> unusedParts;
    /// Removed uses first, then facts that gave way to those of the table.
    std::vector<ChangedFact> changedFacts;
    /// Product roots of the database, other than the replaced one, that share an assembly which
    /// lost uses.
    std::vector<std::string> rootsThatLostUses;

    bool Changes() const
    {
        return newParts + changedParts + newUses + changedUses + removedUses > 0;
    }
};

struct ImportOutcome
{
    ImportCounts counts;
    std::vector<std::string> errors; // ready sentences; empty: done
};

/// A product as it was read, with what tells its rows apart and whether they have changed since.
struct ReadProductRows
{
    Product product;
    std::vector<RowId> parts;                // parallel to the product's parts
    std::vector<RowId> uses;                 // parallel to its uses
    std::vector<std::int64_t> changeNumbers; // parallel to its parts
};

/// Whoever watched a long reading ended it.
class ReadingStopped : public StoreError
{
public:
    using StoreError::StoreError;
};

/// A derived result of a part: it can be made again from what was stated, so it may be missing at
/// any time, and files of products do not carry it. key says what of the part it is.
struct KeptResult
{
    RowId part = 0;
    std::string key;
    /// The part's change number when it was made; it is up to date while that number holds.
    std::int64_t changeNumber = 0;
    std::string result; // any bytes
};

/// Which results are there, without them.
struct KeptLine
{
    RowId part = 0;
    bool upToDate = false;
    std::int64_t bytes = 0; // of the result
};

/// Products in one SQLite file. Reads fetch one part at a time; nothing of a product stays in
/// memory. One thread at a time may use a store.
class Store : public KnownProducts
{
public:
    struct Opened
    {
        std::unique_ptr<Store> store; // null when error is filled
        std::string error;            // a sentence that names the file and says what to do
    };

    /// Opens an existing database. lockWait: milliseconds to wait while another program writes.
    static Opened Open(const std::string& path, int lockWait = 5000);
    /// Opens a database; makes it, with the shipped mass types, where the file does not exist.
    static Opened OpenOrCreate(const std::string& path, int lockWait = 5000);
    /// Opens a passing copy of a database, or of a new one where the file does not exist: what is
    /// done to it reaches no file of the user's, and it is gone with the store. Path and messages
    /// are those of the database. Others may go on writing that one.
    static Opened OpenCopy(const std::string& path, int lockWait = 5000);
    ~Store() override;

    const std::string& Path() const;

    // Known to the reader of tables.
    std::vector<MassType> MassTypes() const override; // by order
    std::unordered_map<std::string, std::vector<std::string>> PartVersions() const override;
    PartType TypeOf(std::string_view identifier, std::string_view version) const override;
    std::optional<Material> FindMaterial(std::string_view name) const override;
    std::optional<Part> FindFacts(std::string_view identifier,
                                  std::string_view version) const override;
    bool HasUses(std::string_view identifier, std::string_view version) const override;
    std::optional<Use> FindUseFacts(const Part& parent, std::string_view instance,
                                    const Part& part) const override;

    // Reads. They throw StoreError.
    /// The parts that nobody uses, by identifier and version.
    std::vector<PartLine> Roots() const;
    /// The root of that identifier; of several versions the one that was stored last, unless one is
    /// named.
    std::optional<PartLine> FindRoot(std::string_view identifier,
                                     std::string_view version = {}) const;
    std::optional<PartLine> FindPart(std::string_view identifier, std::string_view version) const;
    std::optional<PartLine> FindPart(RowId part) const;
    /// The uses below a part, in the order they were stored.
    std::vector<UseLine> UsesOf(RowId part) const;
    std::optional<UseLine> FindUse(RowId parent, std::string_view instance) const;
    /// Everything that was stated about a part or a use.
    StoredPart ReadPart(RowId part) const;
    StoredUse ReadUse(RowId use) const;
    /// ReadUse of all uses below a part, in the order they were stored, in far less time.
    std::vector<StoredUse> ReadUsesBelow(RowId part) const;
    /// The names of all properties of parts and uses, each once, by name.
    std::vector<std::string> PropertyNames() const;
    /// Calls take for every property of every use of the database, those of one use together and
    /// in stored order. Cheaper than reading the uses one by one where there are many.
    void UseProperties(const std::function<void(RowId use, const Property& property)>& take) const;
    DensityCount CountDensities(RowId part) const;
    PartPlaces PlacesOf(RowId part, RowId root) const;
    std::vector<std::string> MaterialNames() const; // by name
    /// A part and everything below it, as of one moment; the part is the first of its parts.
    Product ReadProduct(RowId root) const;
    /// The same with its rows. goOn is asked now and then, with the share done from 0 to 1; false
    /// ends the reading with ReadingStopped.
    ReadProductRows ReadRows(RowId root, const std::function<bool(double)>& goOn) const;
    std::vector<HistoryEntry> History() const; // oldest first
    /// Rises with every change of the part's own facts or of anything below it.
    std::int64_t ChangeNumber(RowId part) const;
    /// What ReadPart and ReadUse read where nobody has pending changes.
    StoredPart CommittedPart(RowId part) const;
    StoredUse CommittedUse(RowId use) const;
    /// What was changed of a part or of a use, newest first.
    std::vector<FactChange> FactChangesOf(OwnerKind kind, RowId owner) const;

    // Changes that one user has made and neither saved nor given up. All throw StoreError, and then
    // nothing has happened.
    /// Adds to them. What was pending of the same quantity gives way; a value that was seen already
    /// leaves nothing pending of that quantity. A text that SetQuantity refuses, and an owner that
    /// does not exist, are refused here too.
    void PutPending(const std::string& user, const std::vector<PendingChange>& changes);
    /// Oldest first.
    std::vector<PendingState> PendingChanges(const std::string& user) const;
    /// Those of one part or use, at the price of these alone.
    std::vector<PendingState> PendingChangesOf(const std::string& user, OwnerKind kind,
                                               RowId owner) const;
    /// 0: he has none. Otherwise another number after each change of what is pending.
    std::int64_t PendingNumber(const std::string& user) const;
    /// Commits all of them as one transaction, or nothing where something conflicts: everything is
    /// pending then as before.
    SaveOutcome SavePending(const std::string& user);
    /// Gives them up; returns how many there were.
    std::size_t AbortPending(const std::string& user);

    // Derived results. Whatever goes wrong with them, nothing is there or nothing is kept: they
    // never stand in the way of an answer.
    std::optional<KeptResult> FindKept(RowId part, std::string_view key) const;
    /// Of all parts that have a result of that key.
    std::vector<KeptLine> KeptLines(std::string_view key) const;
    /// Keeps all of them, in place of those of the same part and key, or none: where another
    /// program is at work it does not wait. Of the results of one part the newest hundred stay.
    /// Returns whether they are kept.
    bool Keep(const std::vector<KeptResult>& results, const std::string& user);

    // Writes; each is one transaction and leaves nothing behind when it fails.
    ImportOutcome Import(const Product& product, const ImportOptions& options);
    /// True when no part, use or material is stored.
    bool IsEmpty() const;
    /// The first import into an empty store, of a product that comes in pieces. Nothing, and
    /// nothing is changed, when the store is not empty or the pieces make no product or state a use
    /// twice. options: asked at the end, when the checksum is known. Throws StoreError.
    std::optional<ImportCounts> ImportFirst(ProductPieces& pieces,
                                            const std::function<ImportOptions()>& options);
    /// Adds mass types or changes those of the same name. Returns the sentences of what is wrong.
    std::vector<std::string> PutMassTypes(const std::vector<MassType>& types,
                                          const std::string& user, const std::string& file);

private:
    friend class StoreBatch;
    friend class StoreMoment;
    friend class StoreImport;
    friend class PendingView;
    explicit Store(std::unique_ptr<Database> database);

    StoredPart Seen(StoredPart part) const;
    StoredUse Seen(StoredUse use) const;
    void CommitSeen(Transaction& transaction);

    std::unique_ptr<Database> m_database;
    /// Of the innermost view; a view looks at a store that it does not change.
    mutable std::unique_ptr<PendingOverlay> m_overlay;
};

/// While it lives, all reads of a store see it as of one moment, whatever other programs write
/// meanwhile, and many small reads cost less. Nothing may be written to the store meanwhile.
class StoreMoment
{
public:
    /// Borrows the store. Throws StoreError.
    explicit StoreMoment(const Store& store);
    StoreMoment(const StoreMoment&) = delete;
    StoreMoment& operator=(const StoreMoment&) = delete;
    ~StoreMoment();

private:
    Database& m_database;
    const bool m_inner;
};

/// Makes one of the writes to a store that follow: all of them happen at Commit, or none. A write
/// that fails meanwhile leaves the others as they are.
class StoreBatch
{
public:
    /// Takes the right to write. Throws StoreError, as Commit does.
    explicit StoreBatch(Store& store);
    StoreBatch(const StoreBatch&) = delete;
    StoreBatch& operator=(const StoreBatch&) = delete;
    ~StoreBatch();

    void Commit();

private:
    struct Guards;
    std::unique_ptr<Guards> m_guards;
};
} // namespace wb
