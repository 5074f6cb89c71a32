10 ' Filled arcs are pieces of a cake; a fill colour of their own adds the arc's outline.
20 SCREEN 3:CLS 3
30 CIRCLE(100,100),70,2,0.3,2,,F:CIRCLE(280,100),70,4,3,5.5,,F,1:CIRCLE(460,100),70,6,5,1,,F
40 CIRCLE(100,280),70,3,-1,-4,0.5,F,2:CIRCLE(280,280),70,5,2,3.3,1.6,F:CIRCLE(460,280),70,7,0.7,0.9,,F,4
