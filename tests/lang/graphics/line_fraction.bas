10 ' Coordinates are rounded, halves upwards.
20 SCREEN 3:CLS 3
30 LINE(10.5,10.4)-(100.6,50.5),4
40 LINE(-0.5,200)-(0.49,210),5
50 PSET(300.5,300.5),7:PSET(310.4,300.49),6
60 A#=20.5:LINE(A#,A#+80)-(A#*2,A#*3),3,B
