10 ' CLS fills the page with the background colour as the palette has it.
20 SCREEN 3:COLOR 6,4:COLOR=(4,3):CLS 3:CIRCLE(300,200),100,2,,,,F:COLOR=(4,1):PRINT "text"
30 PRESET(10,300):LINE(0,350)-(639,360),0,BF
