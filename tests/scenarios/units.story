# The panel speaks the user's units, in headers and in values.
units MASS lb
units LENGTH in
units INERTIAMOMENT lb.in2
units DENSITY lb/in3
start CATTEQWBComputePartCmd
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
# 3.4194 kg / 0.45359237 kg = 7.538486 lb; 1620 mm / 25.4 mm = 63.779528 in; 4 mm = 0.157480 in.
expect CATWBVPMMainPanel/Mass "7.538 lb"
expect CATWBVPMMainPanel/Centre "x 63.7795   y 0   z 0.1575 in"
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "Mass [lb]" 7.538
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "CoG x [in]" 63.7795
click CATWBVPMMainPanel/Position
# 990 mm are 38.976378 in.
expect-cell CATWBVPMMainPanel/Position/List 1 "Shift [in]" 38.9764
click CATWBVPMMainPanel/CloseButton
