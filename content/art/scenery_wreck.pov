// Wreckage lying on the highland below the veil. KIND picks the piece:
// 0 long broken hull with bare ribs, 1 ring station torn open, 2 and 3 scattered plates.
#include "common.inc"

#declare Hull = srgb <0.46, 0.52, 0.58>;
#declare Dark = srgb <0.20, 0.23, 0.28>;
#declare Rustc = srgb <0.46, 0.27, 0.17>;
#declare Sd = seed(41 + KIND);

#macro Panel(X, Y, Z, A, B, C)
  box { <X - A, Y - B, Z - C>, <X + A, Y + B, Z + C> }
#end

#if (KIND = 0)
  union {
    // fore body: plated hull that ends in a break
    difference {
      union {
        object { SymPlate(array[6]{<0, 58>, <4, 50>, <9, 34>, <10, 6>, <7, -2>, <0, 3>}, -3, 5, 3) Paint(Hull) }
        object { SymPlate(array[5]{<0, 46>, <3, 38>, <4, 16>, <2.5, 10>, <0, 10>}, 4, 9, 1.5) Paint(Dark) }
      }
      #for (I, 0, 7)
        box { -1, 1 scale <2 + 2*rand(Sd), 1 + 2*rand(Sd), 8> rotate z*360*rand(Sd) translate <-9 + 18*rand(Sd), 8 + 34*rand(Sd), 6 + 2*rand(Sd)> Matt(Dark) }
      #end
    }
    #for (I, 0, 6) Panel(0, 8 + 6*I, 5.2, 9.5 - I*.6, .35, .4) #end
    // bare ribs
    #for (I, 0, 8)
      torus { 9 - I*.35, .9 - I*.03 rotate x*90 rotate x*(8*rand(Sd) - 4) rotate y*90 rotate z*(90 + 16*rand(Sd) - 8)
        scale <1, 1, .8> translate <rand(Sd) - .5, -6 - I*5.2, -2> }
    #end
    cylinder { <0, 2, -2>, <1, -52, -3>, 1.5 }
    cylinder { <5, 0, 0>, <6, -34, -1>, .8 }
    // aft block with dead engines, turned away
    union {
      object { SymPlate(array[5]{<0, 12>, <9, 9>, <12, -6>, <8, -12>, <0, -12>}, -3, 5, 2.5) Paint(Hull) }
      cylinder { <-5, -10, 1>, <-5, -18, 1>, 4 Paint(Dark) }
      cylinder { <5, -10, 1>, <5, -16, 1>, 4 Paint(Dark) }
      torus { 3.8, .9 translate <-5, -18, 1> Metal(Dark) }
      rotate z*-23 translate <7, -62, 0>
    }
    Paint(Rustc)
    rotate z*34
  }
#end

#if (KIND = 1)
  union {
    difference {
      union {
        torus { 30, 4.4 rotate x*90 }
        torus { 30, 4.9 rotate x*90 scale <1, 1, .3> }
        torus { 21, 1.2 rotate x*90 translate z*1 }
      }
      box { <4, -50, -20>, <60, -6, 20> rotate z*-16 }
      box { <-60, 19, -20>, <-17, 40, 20> rotate z*11 }
      #for (I, 0, 9) cylinder { <0, 25, 2>, <0, 35, 8>, 1.4 rotate z*(36*I + 20*rand(Sd)) } #end
    }
    #for (I, 0, 4)
      cylinder { <0, 6, 0>, <0, 27 - (I = 2 ? 12 : 0), 0>, 1.5 rotate z*(72*I + 12) }
    #end
    sphere { 0, 1 scale <8, 8, 6> Paint(Hull) }
    object { SymPlate(array[4]{<0, 6>, <6, 0>, <3, -6>, <0, -7>}, 2, 9, 2) Paint(Dark) }
    Panel(26, -22, 0, 6, 1.6, 1)
    Panel(36, -14, 0, 2, 4, 1)
    Panel(18, -33, 0, 1.5, 3, 1)
    Paint(Hull)
    rotate z*20
  }
#end

#if (KIND >= 2)
  union {
    #for (I, 0, 17)
      #local A = 360*rand(Sd); #local D = 4 + 34*pow(rand(Sd), 1.3);
      object { Plate(array[5]{<-4, -2>, <-1, 3>, <3, 2.4>, <4.4, -1>, <1, -3>}, -1, 1 + rand(Sd), .8)
        scale <.3 + .9*rand(Sd), .3 + 1.1*rand(Sd), 1> rotate <30*rand(Sd), 30*rand(Sd), 360*rand(Sd)>
        translate <D*cos(radians(A)), D*sin(radians(A))*.7, 0>
        #if (rand(Sd) < .3) Paint(Rustc) #else Paint(Hull) #end }
    #end
    #if (KIND = 2)
      cylinder { <-26, -8, 0>, <10, 13, 0>, 1 Paint(Dark) }
      #for (I, 0, 6) cylinder { <-24 + 5*I, -7 + 2.9*I, 0>, <-22 + 5*I, -12 + 2.9*I + rand(Sd)*3, 1>, .6 Paint(Rustc) } #end
    #else
      difference {
        cylinder { <-8, 12, 0>, <14, -10, 0>, 6 }
        cylinder { <-9, 13, 0>, <15, -11, 0>, 5 }
        box { <-30, -30, 1>, <30, 30, 20> rotate y*24 }
        Paint(Hull)
      }
    #end
  }
#end
