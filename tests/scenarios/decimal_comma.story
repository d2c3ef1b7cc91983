# For a user whose numbers have a decimal comma and whose language is German: the same values, read from the same
# stream, in the user's own form. Played under de_DE.UTF-8.
start CATTEQWBComputePartCmd
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
expect CATWBVPMMainPanel/Name "Spar cap"
expect CATWBVPMMainPanel/Kind Einzelteil
expect CATWBVPMMainPanel/UpToDate Aktuell
expect CATWBVPMMainPanel/MassLabel Masse
expect CATWBVPMMainPanel/Mass "3,419 kg"
expect CATWBVPMMainPanel/Bounds "3,385 bis 3,488 kg"
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "Masse" 3,419
expect-cell CATWBVPMMainPanel/MassTypes/List 4 "Ixx" 0,000833
# Sorted as numbers: 3,419 before 3,9, and empty cells last.
sort CATWBVPMMainPanel/MassTypes/List Masse
expect-cell CATWBVPMMainPanel/MassTypes/List 1 0 Calculated
expect-cell CATWBVPMMainPanel/MassTypes/List 2 0 Estimated
click CATWBVPMMainPanel/Position
expect-cell CATWBVPMMainPanel/Position/List 2 4 543,899
# Computed by the most precise values; what differs from before is marked with what stood there.
pick LA1/WNG-000.1
expect CATWBVPMMainPanel/Mass "103,982 kg"
select CATWBVPMMainPanel/Precision "genaueste Werte"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnungen der Berechnung"
expect-tooltip CATWBVPMMainPanel/Mass "Vorher: 103,982 kg"
click CATWBVPMMainPanel/Sum
expect CATWBVPMMainPanel/Items "alle 111 Teile haben eine Masse"
resize CATWBVPMMainPanel 800 600
shot decimal_comma_sum.png CATWBVPMMainPanel
click CATWBVPMMainPanel/Inertia
shot decimal_comma_inertia.png CATWBVPMMainPanel
# The engine weighed as a whole has nine pages; all of their tabs are seen.
pick LA1/PWR-000.1/PWR-100.1
click CATWBVPMMainPanel/Imposed
expect-cell CATWBVPMMainPanel/Imposed/List 1 Unterschied "1,6 kg"
shot decimal_comma_imposed.png CATWBVPMMainPanel
click CATWBVPMMainPanel/CloseButton

# A use out of the product structure: the transformation comes from the document.
workshop StructureWorkshop
start CATTEQWBComputePartCmd
pick LA1/LDG-000.1/LDG-400.1
expect CATWBVPMMainPanel/Mass "1,02 kg"
expect CATWBVPMMainPanel/Bounds "1,015 bis 1,025 kg"
