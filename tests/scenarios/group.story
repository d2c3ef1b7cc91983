# Groups of the sample aeroplane: by picks, by criteria, kept and found again. The expected figures are worked out from
# data/light_aeroplane.csv by hand.
start CATWBVPMNavGroup
pick LA1/FUS-000.1/FUS-100.1/FUS-110.1
expect CATWBVPMNavGroupPanel Groups
expect CATWBVPMNavGroupPanel/Product LA1
expect CATWBVPMNavGroupPanel/Filter "No filter"
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 1 Instance FUS-110.1
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 1 Name Firewall
# 0.000243 m3 of 7900 kg/m3, at the centre that the table states.
expect CATWBVPMNavGroupPanel/Mass "1.92 kg"
expect CATWBVPMNavGroupPanel/Centre "x 2, y 0, z -60 mm"

# The engine weighs 61.4 kg at -520 - 14, 2, 20 + 6; with the firewall 63.3197 kg at
# (1.9197 * 2 - 61.4 * 534) / 63.3197 and so on. The placards have 0.35 kg and no centre of gravity.
pick LA1/PWR-000.1/PWR-100.1 LA1/FIN-000.1/FIN-300.1
expect CATWBVPMNavGroupPanel/Items 3
expect CATWBVPMNavGroupPanel/Mass "63.67 kg"
expect CATWBVPMNavGroupPanel/Share "16.7 %"
expect CATWBVPMNavGroupPanel/Centre "x -517.75, y 1.939, z 23.393 mm"
expect CATWBVPMNavGroupPanel/Missing "1 has no centre of gravity and stands at that of the rest."
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 3 Remark "no centre of gravity"
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 2 Path LA1/PWR-000.1/PWR-100.1

# In other units, and back.
units MASS lb
units LENGTH in
expect CATWBVPMNavGroupPanel/Mass "140.368 lb"
expect CATWBVPMNavGroupPanel/Centre "x -20.3838, y 0.0764, z 0.921 in"
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 2 "Mass [lb]" 135.364
units MASS kg
units LENGTH mm
expect CATWBVPMNavGroupPanel/Mass "63.67 kg"

# No instance comes twice, and what stands in another one counts with it.
pick LA1/PWR-000.1/PWR-100.1
expect CATWBVPMNavGroupPanel/Word "PWR-100.1 is in the group already."
expect CATWBVPMNavGroupPanel/InstancesPage/List 3
pick LA1/PWR-000.1
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 2 Remark "counts with PWR-000.1"
expect CATWBVPMNavGroupPanel/WhatCounts "1 more counts once, with the assembly that it stands in."
# The power plant's 98.2113 kg hold the engine: with firewall and placards 100.481 kg.
expect CATWBVPMNavGroupPanel/Items 3
expect CATWBVPMNavGroupPanel/Mass "100.481 kg"
shot group_instances.png CATWBVPMNavGroupPanel
click CATWBVPMNavGroupPanel/InstancesPage/RemoveButton
expect CATWBVPMNavGroupPanel/Mass "63.67 kg"

# Kept under a name; another group is not overwritten without a question.
click CATWBVPMNavGroupPanel/InstancesPage/SaveButton
expect-box "The group has no name."
type CATWBVPMNavGroupPanel/InstancesPage/Name "Nose heavy"
click CATWBVPMNavGroupPanel/InstancesPage/SaveButton
expect CATWBVPMNavGroupPanel/Word "Saved as Nose heavy."
select CATWBVPMNavGroupPanel/InstancesPage/List FIN-300.1
click CATWBVPMNavGroupPanel/InstancesPage/RemoveButton
expect CATWBVPMNavGroupPanel/Mass "63.32 kg"
type CATWBVPMNavGroupPanel/InstancesPage/Name "Firewall and engine"
click CATWBVPMNavGroupPanel/InstancesPage/SaveButton
type CATWBVPMNavGroupPanel/InstancesPage/Name "Nose heavy"
answer No
click CATWBVPMNavGroupPanel/InstancesPage/SaveButton

# By criteria: what has run for more than 3 hours, the engine and the propeller, 10.8 kg at -1000, 0, 70.
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/Attribute Operating_time
select CATWBVPMNavGroupPanel/Comparison >
type CATWBVPMNavGroupPanel/Value "long"
click CATWBVPMNavGroupPanel/AddButton
expect-box "Operating_time: \"long\" cannot be read."
type CATWBVPMNavGroupPanel/Value "3 h"
click CATWBVPMNavGroupPanel/AddButton
click CATWBVPMNavGroupPanel/FindButton
expect CATWBVPMNavGroupPanel/Word "2 instances were found."
expect CATWBVPMNavGroupPanel/FoundPage/List 2
expect-cell CATWBVPMNavGroupPanel/FoundPage/List 1 Instance PWR-100.1
expect-cell CATWBVPMNavGroupPanel/FoundPage/List 2 Instance PWR-300.1
expect CATWBVPMNavGroupPanel/Mass "72.2 kg"
expect CATWBVPMNavGroupPanel/Share "18.9 %"
expect CATWBVPMNavGroupPanel/Centre "x -603.706, y 1.701, z 32.582 mm"
shot group_found.png CATWBVPMNavGroupPanel

# And of them what must be inspected before 2027: the engine alone. A pick gives the value of a criterion.
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/Attribute Next_inspection
select CATWBVPMNavGroupPanel/Comparison <
check CATWBVPMNavGroupPanel/TakeFromPick on
pick LA1/PWR-000.1/PWR-300.1
expect CATWBVPMNavGroupPanel/Value 2027/05/26
expect CATWBVPMNavGroupPanel/TakeFromPick off
expect CATWBVPMNavGroupPanel/InstancesPage/List 2
type CATWBVPMNavGroupPanel/Value 1.1.2027
click CATWBVPMNavGroupPanel/AddButton
expect-cell CATWBVPMNavGroupPanel/CriteriaPage/List 2 Value 2027/01/01
shot group_criteria.png CATWBVPMNavGroupPanel
click CATWBVPMNavGroupPanel/FindButton
expect CATWBVPMNavGroupPanel/FoundPage/List 1
expect CATWBVPMNavGroupPanel/Mass "61.4 kg"
# Or the texts that a vendor's name holds: the propeller's too then.
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/CriteriaPage/List Operating_time
click CATWBVPMNavGroupPanel/CriteriaPage/RemoveButton
select CATWBVPMNavGroupPanel/Attribute Vendor
select CATWBVPMNavGroupPanel/Comparison contains
type CATWBVPMNavGroupPanel/Value "dor f"
click CATWBVPMNavGroupPanel/AddButton
check CATWBVPMNavGroupPanel/Or on
click CATWBVPMNavGroupPanel/FindButton
expect CATWBVPMNavGroupPanel/FoundPage/List 2
expect CATWBVPMNavGroupPanel/Mass "72.2 kg"
click CATWBVPMNavGroupPanel/AddFoundButton
expect CATWBVPMNavGroupPanel/Word "1 instance was added to the group."
click CATWBVPMNavGroupPanel/CriteriaPage
type CATWBVPMNavGroupPanel/CriteriaPage/Name "Soon"
click CATWBVPMNavGroupPanel/CriteriaPage/SaveButton
expect CATWBVPMNavGroupPanel/Word "Saved as Soon."

# A group that is not saved is asked about before the window closes.
answer Cancel
click CATWBVPMNavGroupPanel/CloseButton
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 3 Instance PWR-300.1
answer No
click CATWBVPMNavGroupPanel/CloseButton
expect Prompt ""

# Another day: both kinds are found again.
start CATWBVPMNavGroup
pick LA1/EMP-000.1
expect CATWBVPMNavGroupPanel/Mass "18.703 kg"
# The placards below the finish have no centre of gravity.
pick LA1/FIN-000.1
expect CATWBVPMNavGroupPanel/Missing "Of 1 assembly some parts have no mass or no centre of gravity."
select CATWBVPMNavGroupPanel/InstancesPage/Stored "Nose heavy"
answer Yes
click CATWBVPMNavGroupPanel/InstancesPage/RetrieveButton
expect CATWBVPMNavGroupPanel/Word "Nose heavy was retrieved."
expect CATWBVPMNavGroupPanel/InstancesPage/List 3
expect CATWBVPMNavGroupPanel/Mass "63.67 kg"
select CATWBVPMNavGroupPanel/InstancesPage/Stored "Firewall and engine"
answer Yes
click CATWBVPMNavGroupPanel/InstancesPage/DeleteButton
expect CATWBVPMNavGroupPanel/Word "The stored group Firewall and engine was deleted."
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/CriteriaPage/Stored Soon
click CATWBVPMNavGroupPanel/CriteriaPage/RetrieveButton
expect CATWBVPMNavGroupPanel/CriteriaPage/List 2
expect CATWBVPMNavGroupPanel/Or on
click CATWBVPMNavGroupPanel/FindButton
expect CATWBVPMNavGroupPanel/Mass "72.2 kg"
resize CATWBVPMNavGroupPanel 640 480
shot group_small.png CATWBVPMNavGroupPanel

# What a filter leaves out is in the group and counts nothing, and cannot be added.
start CATTEQWBDefineFilterCmd
pick LA1/PWR-000.1
click CATWBVPMNavFilterPanel/OkButton
start CATWBVPMNavGroup
pick LA1/FUS-000.1/FUS-100.1/FUS-110.1
pick LA1/PWR-000.1/PWR-100.1
expect-box "leaves this instance out"
select CATWBVPMNavGroupPanel/InstancesPage/Stored "Nose heavy"
answer Yes
click CATWBVPMNavGroupPanel/InstancesPage/RetrieveButton
expect CATWBVPMNavGroupPanel/Filter "Filter 1"
expect-cell CATWBVPMNavGroupPanel/InstancesPage/List 2 Remark "left out by the filter"
expect CATWBVPMNavGroupPanel/WhatCounts "The filter leaves out 1."
# 1.9197 + 0.35 kg of 381.35925 - 98.2113 kg.
expect CATWBVPMNavGroupPanel/Items 2
expect CATWBVPMNavGroupPanel/Mass "2.27 kg"
expect CATWBVPMNavGroupPanel/Share "0.802 %"
# What is not saved is there again when another command came between.
pick LA1/EMP-000.1
start CATWBComputeCmd
start CATWBVPMNavGroup
pick LA1/EMP-000.1
expect CATWBVPMNavGroupPanel/Word "EMP-000.1 is in the group already."
expect CATWBVPMNavGroupPanel/InstancesPage/List 4
answer No
close CATWBVPMNavGroupPanel
expect Prompt ""
