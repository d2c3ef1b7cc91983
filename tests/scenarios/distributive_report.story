# The aeroplane's masses by weight code and all instances in one list. The expected figures are those of
# data/expected_totals.csv, rounded to what the units show.
start CATWBVPMNavReport
check CATWBVPMNavReportPanel/Distributive on
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavDistributiveReportPreview/SelectionEditor LA1
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListPRC 1 "WB Mass" 381.359
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListPRC 1 COGz -195.479
expect CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 12
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 1 Name WING
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 1 "WB Mass" 95.597
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 2 Name PROPULSION
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 2 "WB Mass" 86.011
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 3 Name BODY
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 3 "WB Mass" 70.77
expect CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 294
shot distributive_report.png CATWBVPMNavDistributiveReportPreview
sort CATWBVPMNavDistributiveReportPreview/ReportMultiListInst "WB Mass"
sort CATWBVPMNavDistributiveReportPreview/ReportMultiListInst "WB Mass"
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 1 "Instance ID" WNG-000.1
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 1 "WB Mass" 103.982
click CATWBVPMNavDistributiveReportPreview/ReportMultiListInst
file distributive_report_files/distributive_report.csv
key Ctrl+E

check CATWBVPMNavDistributiveReportPreview/UnitsDisplay on
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 3 "WB Mass" 70.77kg
check CATWBVPMNavDistributiveReportPreview/TrailingZero on
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 3 "WB Mass" 70.770kg
shot distributive_report_with_units.png CATWBVPMNavDistributiveReportPreview

click CATWBVPMNavDistributiveReportPreview/SavePushB
expect-box "WBReport_LA1_"
file distributive_report_files/distributive_report.xml
click CATWBVPMNavDistributiveReportPreview/SaveToPushB
expect-box "The report was saved to"
file distributive_report_files/distributive_report.xml
answer No
click CATWBVPMNavDistributiveReportPreview/SaveToPushB
file distributive_report_files/distributive_report.xml
answer Yes
click CATWBVPMNavDistributiveReportPreview/SaveToPushB
expect-box "The report was saved to"
click CATWBVPMNavDistributiveReportPreview/ClosePushB

# The power plant alone, without what nobody asked for; the options are as they were left.
pick LA1/PWR-000.1
check CATWBVPMNavReportPanel/Inertia off
check CATWBVPMNavReportPanel/Date off
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnings of the report"
expect CATWBVPMNavDistributiveReportPreview/SelectionEditor "LA1 PWR-000.1"
expect CATWBVPMNavDistributiveReportPreview/UnitsDisplay on
expect CATWBVPMNavDistributiveReportPreview/TrailingZero on
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListPRC 1 "WB Mass" 381.359kg
check CATWBVPMNavDistributiveReportPreview/TrailingZero off
check CATWBVPMNavDistributiveReportPreview/UnitsDisplay off
sort CATWBVPMNavDistributiveReportPreview/ReportMultiListInst "WB Mass"
sort CATWBVPMNavDistributiveReportPreview/ReportMultiListInst "WB Mass"
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 1 "WB Mass" 98.211
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 2 "WB Mass" 61.4
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListInst 2 COGx -534
shot distributive_report_of_the_power_plant.png CATWBVPMNavDistributiveReportPreview
close CATWBVPMNavDistributiveReportPreview
close CATWBVPMNavReportPanel
