10 ' In a 200-line mode a fill goes on below the last row shown.
20 SCREEN 0:CLS 3
30 CIRCLE(320,199),150,4:PAINT(320,190),5,4:LINE(100,0)-(100,399),2:PAINT(0,0),3,2
40 SCREEN 3
