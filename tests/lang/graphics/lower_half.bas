10 ' What a 200-line mode draws below its last row is there when all rows are shown.
20 SCREEN 0:CLS 3
30 LINE(100,150)-(500,350),3,B:CIRCLE(300,200),100,6
40 SCREEN 2
