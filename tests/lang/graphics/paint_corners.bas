10 ' A fill does not pass between pixels that meet at a corner, and reaches all corners.
20 SCREEN 3:CLS 3
30 LINE(0,0)-(639,399),2:LINE(0,399)-(639,0),2
40 PAINT(320,10),1,2:PAINT(10,200),3,2:PAINT(600,200),4,2:PAINT(320,390),5,2
