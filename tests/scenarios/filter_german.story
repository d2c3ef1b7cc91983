# The filter panel for a German user. Played under de_DE.UTF-8.
start CATTEQWBDefineFilterCmd
expect CATWBVPMNavFilterPanel Filter
expect CATWBVPMNavFilterPanel/Counting "Kein Filter"
pick LA1/EMP-000.1
pick LA1/EMP-000.1
expect CATWBVPMNavFilterPanel/Word "EMP-000.1 steht schon in der Liste."
expect-cell CATWBVPMNavFilterPanel/Instances/List 1 Dabei nein
expect CATWBVPMNavFilterPanel/Rest "Alles andere ist dabei."
type CATWBVPMNavFilterPanel/Name "Ohne Leitwerk|"
click CATWBVPMNavFilterPanel/OkButton
expect-box "„Ohne Leitwerk|“ kann kein Filter heißen"
type CATWBVPMNavFilterPanel/Name "Ohne Leitwerk"
shot filter_panel_german.png CATWBVPMNavFilterPanel
resize CATWBVPMNavFilterPanel 640 480
shot filter_panel_german_small.png CATWBVPMNavFilterPanel
click CATWBVPMNavFilterPanel/OkButton

# 381,35925 kg weniger 18,702996 kg.
start CATWBComputeCmd
expect CATWBComputeCmd/ConfigHandlerEditor "Ohne Leitwerk"
click CATWBComputeCmd/ComputeButton
expect-box "Ohne Leitwerk"
expect CATWBComputeCmd/MassEditor 362,656kg
