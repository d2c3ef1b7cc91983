# Values edited in the main panel, applied, saved and given up. The placards weigh 0.35 kg by estimate and stand once in
# the aeroplane of 381.35925 kg; the rest of it weighs 381.00925 kg.
start CATTEQWBComputePartCmd
pick LA1/FIN-000.1/FIN-300.1
resize CATWBVPMMainPanel 1000 700
expect CATWBVPMMainPanel/Name Placards
expect CATWBVPMMainPanel/ActiveMassTypeChoice "Estimated (by default)"
expect CATWBVPMMainPanel/EditWords ""

# A mass with a unit: 1 lb is 0.45359237 kg. An expression. Undo goes back one step.
click CATWBVPMMainPanel/Values
expect CATWBVPMMainPanel/StatedMassEditor "0.35 kg"
type CATWBVPMMainPanel/StatedMassEditor "1 lb"
expect CATWBVPMMainPanel/StatedMassEditor "0.454 kg"
expect CATWBVPMMainPanel/EditWords "✎ 1 edit is not applied."
expect-tooltip CATWBVPMMainPanel/StatedMassEditor "Not applied yet. Saved is 0.35 kg."
type CATWBVPMMainPanel/StatedMassEditor 0.2*2.5
expect CATWBVPMMainPanel/StatedMassEditor "0.5 kg"
click CATWBVPMMainPanel/UndoButton
expect CATWBVPMMainPanel/StatedMassEditor "0.454 kg"

# What is no mass stays in its field, and is taken back by Esc. The window stays open.
type CATWBVPMMainPanel/StatedMassEditor heavy
expect CATWBVPMMainPanel/StatedMassEditor heavy
expect CATWBVPMMainPanel/Values/Problem "\"heavy\" is no mass; expected a number like 12.5 kg."
expect CATWBVPMMainPanel/EditWords "✕ 1 entry cannot be taken.   ✎ 1 edit is not applied."
shot save_problem.png CATWBVPMMainPanel
click CATWBVPMMainPanel/ApplyButton
expect-box "An entry cannot be taken"
click CATWBVPMMainPanel/StatedMassEditor
key Esc
expect CATWBVPMMainPanel/StatedMassEditor "0.454 kg"
expect CATWBVPMMainPanel/EditWords "✎ 1 edit is not applied."

# Nothing loses it: neither a computation, nor another pick, nor closing.
answer No
click CATWBVPMMainPanel/ComputeButton
expect CATWBVPMMainPanel/EditWords "✎ 1 edit is not applied."
answer No
pick LA1/WNG-000.1
expect CATWBVPMMainPanel/Name Placards
answer Cancel
click CATWBVPMMainPanel/CloseButton
expect CATWBVPMMainPanel/StatedMassEditor "0.454 kg"

# Applied it counts, for this user. The server knows: 381.00925 + 0.45359237 = 381.46284.
expect CATWBVPMMainPanel/Mass "0.35 kg"
click CATWBVPMMainPanel/ApplyButton
expect CATWBVPMMainPanel/Mass "0.454 kg"
expect CATWBVPMMainPanel/EditWords "● 1 change is not saved."
expect-tooltip CATWBVPMMainPanel/StatedMassEditor "Applied, but not saved. Saved is 0.35 kg."
expect UnsavedChanges "1 unsaved change"
select CATWBVPMMainPanel/Entity "the whole product"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Mass 381.463
select CATWBVPMMainPanel/Entity "this instance with what is below"

# Another pick asks, applies and goes on.
type CATWBVPMMainPanel/StatedMassEditor "460 g"
answer Yes
pick LA1/WNG-000.1
expect CATWBVPMMainPanel/Name Wing
expect CATWBVPMMainPanel/EditWords ""
pick LA1/FIN-000.1/FIN-300.1
expect CATWBVPMMainPanel/Mass "0.46 kg"

# What waits to be saved, and what was saved.
click CATWBVPMMainPanel/Changes
expect CATWBVPMMainPanel/Changes/Words "1 of your changes is not saved."
expect-cell CATWBVPMMainPanel/Changes/Pending 1 Of "part FIN-300 A"
expect-cell CATWBVPMMainPanel/Changes/Pending 1 Value "Estimated: mass"
expect-cell CATWBVPMMainPanel/Changes/Pending 1 Before "0.35 kg"
expect-cell CATWBVPMMainPanel/Changes/Pending 1 "Changed to" "0.46 kg"
expect-cell CATWBVPMMainPanel/Changes/Pending 1 State "waits to be saved"
expect CATWBVPMMainPanel/Changes/History 0
shot save_pending.png CATWBVPMMainPanel
key Ctrl+S
click CATWBVPMNavSaveManagement/PushButton001
expect-box "All your changes were saved"
expect CATWBVPMMainPanel/EditWords ""
expect CATWBVPMMainPanel/Changes/Pending 0
expect CATWBVPMMainPanel/Changes/History 1
expect-cell CATWBVPMMainPanel/Changes/History 1 Value "Estimated: mass"
expect-cell CATWBVPMMainPanel/Changes/History 1 Before "0.35 kg"
expect-cell CATWBVPMMainPanel/Changes/History 1 After "0.46 kg"
expect-cell CATWBVPMMainPanel/Changes/History 1 How "saved here"
expect UnsavedChanges ""

# Another change is given up: material and weighing are as they were.
click CATWBVPMMainPanel/Material
expect CATWBVPMMainPanel/MaterialNameChoice –
select CATWBVPMMainPanel/MaterialNameChoice GFRP
click CATWBVPMMainPanel/MassTypes
select CATWBVPMMainPanel/MassTypes/List Weighed
click CATWBVPMMainPanel/Values
type CATWBVPMMainPanel/StatedMassEditor "0.47 kg"
select CATWBVPMMainPanel/ActiveMassTypeChoice Weighed
expect CATWBVPMMainPanel/EditWords "✎ 3 edits are not applied."
click CATWBVPMMainPanel/ApplyButton
expect CATWBVPMMainPanel/ActiveMassTypeChoice Weighed
expect CATWBVPMMainPanel/Mass "0.47 kg"
expect CATWBVPMMainPanel/EditWords "● 3 changes are not saved."
shot save_applied.png CATWBVPMMainPanel
click CATWBVPMNavSaveManagement/PushButton002
expect-box "were discarded"
expect CATWBVPMMainPanel/ActiveMassTypeChoice "Estimated (by default)"
expect CATWBVPMMainPanel/Mass "0.46 kg"
expect CATWBVPMMainPanel/EditWords ""
expect CATWBVPMMainPanel/StatedMassEditor ""
click CATWBVPMMainPanel/Changes
expect CATWBVPMMainPanel/Changes/Pending 0
expect CATWBVPMMainPanel/Changes/History 1

# Another command would close the panel: it asks first. Edits that are not wanted go at closing.
click CATWBVPMMainPanel/Values
type CATWBVPMMainPanel/StatedMassEditor "0.48 kg"
answer Cancel
start CATWBComputeCmd
expect CATWBVPMMainPanel/StatedMassEditor "0.48 kg"
expect Prompt "Select a part or an assembly"
answer No
click CATWBVPMMainPanel/CloseButton
expect Prompt ""
