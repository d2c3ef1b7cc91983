# Groups for a German user with a decimal comma. Played under de_DE.UTF-8.
start CATWBVPMNavGroup
pick LA1/FUS-000.1/FUS-100.1/FUS-110.1 LA1/PWR-000.1/PWR-100.1
expect CATWBVPMNavGroupPanel Gruppen
# 1,9197 kg and 61,4 kg.
expect CATWBVPMNavGroupPanel/Mass "63,32 kg"
expect CATWBVPMNavGroupPanel/Share "16,6 %"
expect CATWBVPMNavGroupPanel/Centre "x -517,75, y 1,939, z 23,393 mm"
shot group_german.png CATWBVPMNavGroupPanel
click CATWBVPMNavGroupPanel/CriteriaPage
select CATWBVPMNavGroupPanel/Attribute Masse
select CATWBVPMNavGroupPanel/Comparison >=
type CATWBVPMNavGroupPanel/Value "135,3 Pfund"
click CATWBVPMNavGroupPanel/AddButton
expect-box "Masse: „135,3 Pfund“ ist nicht lesbar."
type CATWBVPMNavGroupPanel/Value "135,3 lb"
click CATWBVPMNavGroupPanel/AddButton
expect-cell CATWBVPMNavGroupPanel/CriteriaPage/List 1 Wert "135,3 lb"
resize CATWBVPMNavGroupPanel 640 480
shot group_german_small.png CATWBVPMNavGroupPanel
# 135,3 lb are 61,371 kg: the engine, the power plant, the wing and the fuselage weigh more.
click CATWBVPMNavGroupPanel/FindButton
expect CATWBVPMNavGroupPanel/Word "4 Instanzen wurden gefunden."
expect CATWBVPMNavGroupPanel/Items 3
expect CATWBVPMNavGroupPanel/WhatCounts "1 weitere zählt einmal, mit der Baugruppe, in der sie steht."
# 98,2113 + 103,982044 + 71,03366 kg.
expect CATWBVPMNavGroupPanel/Mass "273,227 kg"
answer No
answer No
click CATWBVPMNavGroupPanel/CloseButton
