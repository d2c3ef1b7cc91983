# The compute window for a German user with a decimal comma. Played under de_DE.UTF-8.
start CATWBComputeCmd
expect CATWBComputeCmd "Produkt berechnen"
expect CATWBComputeCmd/ConfigHandlerEditor "Kein Filter"
answer Yes
click CATWBComputeCmd/ComputeButton
expect-box "Warnungen der Berechnung"
expect CATWBComputeCmd/MassEditor 381,359kg
expect CATWBComputeCmd/LowerDeviationEditor 11,523kg
expect CATWBComputeCmd/CGyEditor -3,07mm
expect CATWBComputeCmd/IyzEditor -0,230203kg.m2
check CATWBComputeCmd/ReferenceButton on
expect CATWBComputeCmd/IxyEditor -0,450962kg.m2
shot compute_product_german.png CATWBComputeCmd
click CATWBComputeCmd/StatisticsPage
expect-cell CATWBComputeCmd/StatisticsMultiList 4 Dichte 2,224kg/m2
expect-cell CATWBComputeCmd/StatisticsMultiList 1 Massenanteil 24,9%
shot compute_product_german_materials.png CATWBComputeCmd
# A small window scrolls, a large one gives its room to the results.
resize CATWBComputeCmd 400 300
shot compute_product_german_small.png CATWBComputeCmd
resize CATWBComputeCmd 1100 800
shot compute_product_german_large.png CATWBComputeCmd
click CATWBComputeCmd/CloseButton
