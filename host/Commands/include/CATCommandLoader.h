#pragma once

#include "CATCommand.h"

#include <string>
#include <vector>

/// A command that a workbench offers, as the files "workbenches/*.toml" of the resources say it.
struct CATCommandHeader
{
    CATString className; ///< its factory is "fctCreate" and this name
    CATString library;   ///< holds the factory: "CATTEQWBCmdsAndTools"
    CATString companion; ///< may be empty; its "<companion>Register" is called once after loading
    CATUnicodeString title; ///< as menu and toolbar show it
    CATUnicodeString tooltip;
    CATString icon;     ///< file below "icons" of the resources; may be empty
    CATString workshop; ///< where it is offered; empty: in every workshop
    CATString shortcut; ///< "Ctrl+1"; may be empty
};

/// Reads which commands there are, in the order of the files' names and of their entries:
///
///     [[command]]
///     class = "CATWBComputeCmd"          # class, library and title must be there
///     library = "CATTEQWBCmdsAndTools"
///     title = "Compute"
///
/// Of two files of one name in several resource directories the first counts. A file that cannot be
/// read and an entry that lacks a field are reported in `problems`, a sentence each that names file
/// and line, and left out; the other commands stay.
WB_EXPORT std::vector<CATCommandHeader> CATReadCommandHeaders(std::vector<std::string>& problems);

/// Loads the libraries of a command (once a session, never unloaded: their classes may live until
/// the end) and makes the command. A library is the file "lib<name>.so" beside the host's own.
/// Null, with a sentence that names the missing file or function, when that fails; a command whose
/// companion cannot be loaded is not made. A fault of the constructor ends in such a sentence too.
///
/// The new command may have no parent; CATSession::Start takes it into the tree.
WB_EXPORT CATCommand* CATCreateCommand(const CATCommandHeader& header, CATUnicodeString& problem);

/// Loads a companion library by its name and has it register, once a session; an empty name is no
/// companion. False, with the sentence, when that fails.
WB_EXPORT bool CATLoadCompanion(const CATString& companion, CATUnicodeString& problem);
