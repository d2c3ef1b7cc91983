# The report panel for a German user with a decimal comma. Played under de_DE.UTF-8.
start CATWBVPMNavReport
expect CATWBVPMNavReportPanel Bericht
expect CATWBVPMNavReportPanel/Filter "Kein Filter"
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1
expect CATWBVPMNavReportPanel/Word "WNG-210.1 steht schon in der Liste."
expect-cell CATWBVPMNavReportPanel/Instances/List 1 Pfad LA1/WNG-000.1/WNG-200R.1/WNG-210.1
type CATWBVPMNavReportPanel/PointX 1.2.3
click CATWBVPMNavReportPanel/GenerateButton
expect-box "X des Bezugspunkts: „1.2.3“ ist keine Zahl"

# Either decimal mark is read; 930,082 mm less 0,5 mm are 929,582 mm.
type CATWBVPMNavReportPanel/PointX 0,5
type CATWBVPMNavReportPanel/PointY 0.25
check CATWBVPMNavReportPanel/KeepInertia on
shot report_panel_german.png CATWBVPMNavReportPanel
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnungen zum Bericht"
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 "WB Mass" 381,359
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGx 929,582
# -3,07039 mm less 0,25 mm.
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3,32
expect-cell CATWBVPMNavReportPreview/ReportMultiListInst 1 "WB Mass" 11,387
check CATWBVPMNavReportPreview/UnitsDisplay on
check CATWBVPMNavReportPreview/TrailingZero on
expect-cell CATWBVPMNavReportPreview/ReportMultiListPRC 1 COGy -3,320mm
shot report_german.png CATWBVPMNavReportPreview
close CATWBVPMNavReportPreview

check CATWBVPMNavReportPanel/Distributive on
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnungen zum Bericht"
expect-cell CATWBVPMNavDistributiveReportPreview/ReportMultiListSection 3 "WB Mass" 70,770kg
close CATWBVPMNavDistributiveReportPreview

check CATWBVPMNavReportPanel/MaterialStatistics on
shot report_panel_german_statistics.png CATWBVPMNavReportPanel
click CATWBVPMNavReportPanel/GenerateButton
expect-box "Warnungen zum Bericht"
expect-cell CATWBVPMNavMatStatPreview/MatStatPRCMultiList 1 Masse 94,998kg
expect CATWBVPMNavMatStatPreview/UnitsNote "Einheiten: kg, kg/m3, kg/m2"
close CATWBVPMNavMatStatPreview
click CATWBVPMNavReportPanel/CloseButton
