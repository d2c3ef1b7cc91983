# One pick fills the panel, in each workshop. The expected texts are typed from data/light_aeroplane.csv.

# The navigator: an item instance of the database.
start CATTEQWBComputePartCmd
expect Prompt "Select a part or an assembly"
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1

# At first glance: name, place, active values, and whether they are up to date.
expect CATWBVPMMainPanel/Name "Spar cap"
expect CATWBVPMMainPanel/Part "WNG-211, version B"
expect CATWBVPMMainPanel/Instance WNG-211.1
expect CATWBVPMMainPanel/Path "LA1 / WNG-000.1 / WNG-200R.1 / WNG-210.1 / WNG-211.1"
expect CATWBVPMMainPanel/Kind "Single part"
expect CATWBVPMMainPanel/UpToDate "Up to date"
expect CATWBVPMMainPanel/ActiveMassType Calculated
# 0.00123 m3 of 2780 kg/m3 is 3.4194 kg; 1 % below is 3.385206, 2 % above 3.487788.
expect CATWBVPMMainPanel/Mass "3.419 kg"
expect CATWBVPMMainPanel/Bounds "3.385 to 3.488 kg"
expect CATWBVPMMainPanel/Centre "x 1620   y 0   z 4 mm"

# Every mass type, in order of maturity behind Computed.
expect CATWBVPMMainPanel/MassTypes/List 6
expect-cell CATWBVPMMainPanel/MassTypes/List 1 "Mass type" Computed
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Mass ""
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "Mass type" Estimated
expect-cell CATWBVPMMainPanel/MassTypes/List 3 Mass 3.9
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "Lower dev." 0.39
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "Upper dev." 0.78
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "CoG x" ""
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "Mass type" Calculated
expect-cell CATWBVPMMainPanel/MassTypes/List 4 Role active
expect-cell CATWBVPMMainPanel/MassTypes/List 4 Mass 3.419
expect-cell CATWBVPMMainPanel/MassTypes/List 4 Ixx 0.000833
expect-cell CATWBVPMMainPanel/MassTypes/List 4 Iyy 4.00737
expect-cell CATWBVPMMainPanel/MassTypes/List 4 Izz 4.00769
shot compute_part_navigator.png

# Material, documents, properties, place.
click CATWBVPMMainPanel/Material
expect CATWBVPMMainPanel/MaterialName "Al 2024-T3"
expect CATWBVPMMainPanel/Density "2780 kg/m3"
expect-cell CATWBVPMMainPanel/Material/List 1 Material "Al 2024-T3"
expect-cell CATWBVPMMainPanel/Material/List 1 Mass 3.419
expect-cell CATWBVPMMainPanel/Material/List 1 Share 100
click CATWBVPMMainPanel/Documents
expect CATWBVPMMainPanel/ActiveDocument "D-WNG-211, version B.2"
expect CATWBVPMMainPanel/AttachedRevision "D-WNG-211 B.1"
expect-cell CATWBVPMMainPanel/Documents/List 1 Version A.1
expect-cell CATWBVPMMainPanel/Documents/List 1 "Checked out by" ""
expect-cell CATWBVPMMainPanel/Documents/List 3 "Checked in" 2026/05/04
expect-cell CATWBVPMMainPanel/Documents/List 3 "Checked in by" moreau
expect-cell CATWBVPMMainPanel/Documents/List 3 "Checked out by" keller
expect-cell CATWBVPMMainPanel/Documents/List 3 Mass 3.38
click CATWBVPMMainPanel/Properties
expect-cell CATWBVPMMainPanel/Properties/List 1 Property Location
expect-cell CATWBVPMMainPanel/Properties/List 1 Value upper
# The wing's panel is turned by 5 degrees and the spar by 90 in it: 550 - 70 sin 5 and -560 + 70 cos 5.
click CATWBVPMMainPanel/Position
expect-cell CATWBVPMMainPanel/Position/List 1 Shift 990
expect-cell CATWBVPMMainPanel/Position/List 2 Shift 543.899
expect-cell CATWBVPMMainPanel/Position/List 3 Shift -490.266
expect-cell CATWBVPMMainPanel/Position/List 1 "y axis of the part" -1

# The next pick fills the same panel. What nobody knows is not shown as 0.
pick LA1/FIN-000.1/FIN-300.1
expect CATWBVPMMainPanel/Name Placards
expect CATWBVPMMainPanel/Mass "0.35 kg"
expect CATWBVPMMainPanel/Bounds "0.315 to 0.42 kg"
expect CATWBVPMMainPanel/Centre "–"

# An assembly has no values of its own here, but goals and old estimates: it is what is below it.
pick LA1/WNG-000.1
expect CATWBVPMMainPanel/Name Wing
expect CATWBVPMMainPanel/Kind Assembly
expect CATWBVPMMainPanel/ActiveMassType Computed
expect CATWBVPMMainPanel/Mass "103.982 kg"
expect CATWBVPMMainPanel/Centre "x 568.054   y -7.892   z 136.539 mm"
expect-cell CATWBVPMMainPanel/MassTypes/List 2 Mass 100
expect-cell CATWBVPMMainPanel/MassTypes/List 3 Mass 104
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "CoG x" 620
resize CATWBVPMMainPanel 1000 700

# Compute: the values are as they were, so nothing is marked.
expect CATWBVPMMainPanel/Filter "No filter"
select CATWBVPMMainPanel/StoredSums "compute all anew"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/Mass "103.982 kg"
expect CATWBVPMMainPanel/UpToDate "Up to date"
click CATWBVPMMainPanel/Sum
expect CATWBVPMMainPanel/What "Computed here: this instance with what is below; active values; unfiltered."
expect CATWBVPMMainPanel/Items "all 111 items have a mass"
shot compute_part_sum.png CATWBVPMMainPanel

# By the most precise values the right aileron counts as weighed; what differs is marked.
select CATWBVPMMainPanel/Precision "most precise values"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/UnusualSum "most precise values"
expect-tooltip CATWBVPMMainPanel/Mass "Before: 103.982 kg"
expect CATWBVPMMainPanel/MarksNote "So marked: differs from before the computation. Point at a value to read what stood there."
shot compute_part_marks.png CATWBVPMMainPanel
click CATWBVPMMainPanel/Values
shot compute_part_values.png CATWBVPMMainPanel
click CATWBVPMMainPanel/Inertia
shot compute_part_inertia.png CATWBVPMMainPanel

# The whole product, of which the wing is a part: by active values it weighs 381.35925 kg, by the most precise ones
# 382.05345 kg.
select CATWBVPMMainPanel/Entity "the whole product"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/Mass "382.053 kg"
expect-tooltip CATWBVPMMainPanel/Mass "Before: 104.092 kg"
expect CATWBVPMMainPanel/Name Wing
select CATWBVPMMainPanel/Precision "active values"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/Mass "381.359 kg"
expect CATWBVPMMainPanel/Centre "x 930.082   y -3.07   z -195.479 mm"
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Ixx 735.358117
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Ixz 22.906066
click CATWBVPMMainPanel/Material
expect-cell CATWBVPMMainPanel/Material/List 1 Material "Al 2024-T3"
expect-cell CATWBVPMMainPanel/Material/List 1 Mass 94.998
expect-cell CATWBVPMMainPanel/Material/List 1 Share 24.9

# One mass type alone: nothing stands in for what lacks it. 116.627 kg of the product are the supplier's.
select CATWBVPMMainPanel/Precision Supplier
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/Mass "116.627 kg"
expect CATWBVPMMainPanel/UnusualSum "the whole product\nSupplier"

# In other units the marks stay and the old values with them: 116.627 kg / 0.45359237 kg = 257.1185 lb, and
# 381.35925 kg are 840.7532 lb.
units MASS lb
expect-tooltip CATWBVPMMainPanel/Mass "Before: 840.753 lb"
expect CATWBVPMMainPanel/Mass "257.119 lb"
units MASS kg
select CATWBVPMMainPanel/Precision "active values"
select CATWBVPMMainPanel/Entity "this instance with what is below"

# A level must be a number; the next computation works.
select CATWBVPMMainPanel/StoredSums "take as stored below level"
type CATWBVPMMainPanel/Level two
click CATWBVPMMainPanel/ComputeButton
expect-box "whole number from 0"
type CATWBVPMMainPanel/Level 1
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect CATWBVPMMainPanel/Mass "103.982 kg"
select CATWBVPMMainPanel/StoredSums "update what changed"

# The next record is marked nowhere.
# The engine was weighed as a whole: 61.4 kg stand for the 59.8 kg below it.
pick LA1/PWR-000.1/PWR-100.1
expect CATWBVPMMainPanel/ActiveMassType Weighed
expect CATWBVPMMainPanel/Mass "61.4 kg"
expect-tooltip CATWBVPMMainPanel/Mass ""
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Mass 59.8
click CATWBVPMMainPanel/Imposed
expect-cell CATWBVPMMainPanel/Imposed/List 1 Own "61.4 kg"
expect-cell CATWBVPMMainPanel/Imposed/List 1 Below "59.8 kg"
expect-cell CATWBVPMMainPanel/Imposed/List 1 Difference "1.6 kg"
expect-cell CATWBVPMMainPanel/Imposed/List 4 Below "-6.438 mm"
expect-cell CATWBVPMMainPanel/Imposed/List 7 Own "2.084667 kg.m2"
shot compute_part_imposed.png CATWBVPMMainPanel
click CATWBVPMMainPanel/Values
expect CATWBVPMMainPanel/Source "test bench scale, engine 0007 dry, 2026/05/26"
expect-cell CATWBVPMMainPanel/Values/List 1 "Standard uncertainty" "0.03 kg"
expect-cell CATWBVPMMainPanel/Values/List 7 "Where from" "not stated; sums use Computed"
# Computed is what is below, whatever is imposed; alone the engine has nothing but its own values.
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
expect-cell CATWBVPMMainPanel/MassTypes/List 1 Mass 59.8
click CATWBVPMMainPanel/MassTypes

# Closing the panel ends the command.
click CATWBVPMMainPanel/CloseButton
expect Prompt ""

# The product structure: a product of a document that lives in the database.
workshop StructureWorkshop
start CATTEQWBComputePartCmd
expect Prompt "Select a part or an assembly"
pick LA1/LDG-000.1/LDG-400.1
expect CATWBVPMMainPanel/Name "Wheel fairing"
expect CATWBVPMMainPanel/Path "LA1 / LDG-000.1 / LDG-400.1"
# This one use was weighed: 1.02 kg and 5 g either way.
expect CATWBVPMMainPanel/ActiveMassType Weighed
expect CATWBVPMMainPanel/Mass "1.02 kg"
expect CATWBVPMMainPanel/Bounds "1.015 to 1.025 kg"
expect CATWBVPMMainPanel/Centre "x 6   y 0   z 2 mm"
click CATWBVPMMainPanel/Material
expect CATWBVPMMainPanel/MaterialName GFRP
expect CATWBVPMMainPanel/PartMaterial GFRP
expect CATWBVPMMainPanel/PartDensity "1850 kg/m3"
click CATWBVPMMainPanel/Position
expect-cell CATWBVPMMainPanel/Position/List 1 Shift 1230
expect-cell CATWBVPMMainPanel/Position/List 2 Shift 960
expect-cell CATWBVPMMainPanel/Position/List 3 Shift -1030
shot compute_part_structure.png
# The other two fairings are as calculated: 0.0005 m3 of 1850 kg/m3.
pick LA1/LDG-000.1/LDG-400.2
expect CATWBVPMMainPanel/ActiveMassType Calculated
expect CATWBVPMMainPanel/Mass "0.925 kg"
# The root is no instance: it is refused without a word, and the panel stays.
pick LA1
expect CATWBVPMMainPanel/Name "Wheel fairing"
