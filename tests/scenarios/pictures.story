# Makes the pictures of the documentation.
start CATTEQWBComputePartCmd
pick LA1/WNG-000.1/WNG-200R.1/WNG-210.1/WNG-211.1
resize CATWBVPMMainPanel 1100 640
shot main_panel.png CATWBVPMMainPanel

pick LA1/WNG-000.1
select CATWBVPMMainPanel/Precision "most precise values"
click CATWBVPMMainPanel/ComputeButton
expect-box "Warnings of the computation"
click CATWBVPMMainPanel/Values
resize CATWBVPMMainPanel 1100 700
shot main_panel_computed.png CATWBVPMMainPanel

start CATWBComputeCmd
answer Yes
click CATWBComputeCmd/ComputeButton
expect-box "Warnings of the computation"
shot compute_product.png CATWBComputeCmd
click CATWBComputeCmd/CloseButton

menu Tools/Units...
select CATWBVPMNavUnitsConversion/Preset Inch-pound
select CATWBVPMNavUnitsConversion/Table Length
shot units_panel.png CATWBVPMNavUnitsConversion
