# Several nodes are selected: the command takes the last one. The root and what has no values are no trouble.
start CATTEQWBComputePartCmd
pick LA1
expect Prompt "Select a part or an assembly"
pick LA1/FIN-000.1/FIN-300.1 LA1/PWR-000.1/PWR-200.1
expect CATWBVPMMainPanel/Name "Engine mount"
# 0.000535 m3 of 7850 kg/m3.
expect CATWBVPMMainPanel/Mass "4.2 kg"
# Sizes at which everything must still be read.
resize CATWBVPMMainPanel 800 600
shot picks_small.png CATWBVPMMainPanel
resize CATWBVPMMainPanel 1920 1080
shot picks_large.png CATWBVPMMainPanel
# The list can be sorted without disturbing anything: numbers as numbers, empty cells last.
pick LA1/WNG-000.1
sort CATWBVPMMainPanel/MassTypes/List Mass
expect-cell CATWBVPMMainPanel/MassTypes/List 1 "Mass type" Target
# 103.982 kg are below the wing: more than its goal of 100, less than its estimate of 104.
expect-cell CATWBVPMMainPanel/MassTypes/List 2 "Mass type" Computed
expect-cell CATWBVPMMainPanel/MassTypes/List 3 "Mass type" Estimated
# Closing the window by its frame ends the command too.
close CATWBVPMMainPanel
expect Prompt ""
