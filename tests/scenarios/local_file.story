# A table file opens as a document on disk, without the database: there is nothing to ask the PDM about.
open ../../data/small_satellite.csv
start CATTEQWBComputePartCmd
pick SC1/STR-000.1/STR-100.1
expect-box "Not in the PDM"
# The command waits again, and says so again.
expect Prompt "Select a part or an assembly"
pick SC1/STR-000.1/STR-100.2
expect-box "not stored in the PDM"
shot local_file.png
# Esc ends the command.
key Esc
expect Prompt ""
# A product of the database is known again.
open SC1
start CATTEQWBComputePartCmd
pick SC1/STR-000.1/STR-150.2
# This one bracket is made of titanium: 0.000118 m3 of 4430 kg/m3.
expect CATWBVPMMainPanel/Name "Star tracker bracket"
expect CATWBVPMMainPanel/Mass "0.523 kg"
click CATWBVPMMainPanel/Material
expect CATWBVPMMainPanel/MaterialName Ti-6Al-4V
expect CATWBVPMMainPanel/AppliedOn "this instance alone"
expect CATWBVPMMainPanel/PartMaterial "Al 7075-T6"
