// Generate loops, conditions and cases, with and without labels, and arrays of instances.
module cell_ #(parameter N = 1) (input [N-1:0] d, output q);
    wire [N-1:0] inverted = ~d;
    assign q = &inverted;
endmodule
module tree #(parameter DEPTH = 1) (input d, output q);
    generate
        if (DEPTH > 0) begin : branch
            wire left, right;
            tree #(.DEPTH(DEPTH - 1)) l (.d(d), .q(left));
            tree #(.DEPTH(DEPTH - 1)) r (.d(d), .q(right));
            assign q = left | right;
        end else begin : leaf
            wire [DEPTH:0] value = {d};
            assign q = value[0];
        end
    endgenerate
endmodule
module top #(parameter KIND = 2) (input [7:0] d, output [7:0] q, output r);
    genvar i, j;
    generate
        for (i = 0; i < 2; i = i + 1) begin : row
            wire [1:0] partial;
            for (j = 1; j >= 0; j = j - 1) begin : column
                wire here;
                cell_ #(.N(i + 1)) u (.d(d[j+i:j]), .q(here));
                assign partial[j] = here;
                if (j == i) begin : diagonal
                    reg [i+2:1] extra;
                end else begin
                    wire off_diagonal = here;
                end
            end
            assign q[2*i+1:2*i] = partial;
        end
        if (KIND == 2) begin
            wire unlabelled;
        end
        case (KIND)
            1: begin : one wire in_one; end
            2: begin : two wire in_two; end
        endcase
        if (KIND == 0) begin : zero wire in_zero; end
        else begin : otherwise wire in_otherwise; end
        for (i = 5; i < 7; i = i + 1) begin
            wire looped = d[i];
        end
    endgenerate
    cell_ bank [1:0] (.d(d[1:0]), .q());
    cell_ upward [3:4] (.d(d[1:0]), .q());
    tree t (.d(d[0]), .q(r));
endmodule

//= top:top r d[7:0] q[7:0]
//= top/row[0]:row partial[1:0]
//= top/row[0]/column[1]:column here
//= top/row[0]/column[1]/u:cell_ q d[0:0] inverted[0:0]
//= top/row[0]/column[1]/genblk1:genblk1 off_diagonal
//= top/row[0]/column[0]:column here
//= top/row[0]/column[0]/u:cell_ q d[0:0] inverted[0:0]
//= top/row[0]/column[0]/diagonal:diagonal extra[2:1]
//= top/row[1]:row partial[1:0]
//= top/row[1]/column[1]:column here
//= top/row[1]/column[1]/u:cell_ q d[1:0] inverted[1:0]
//= top/row[1]/column[1]/diagonal:diagonal extra[3:1]
//= top/row[1]/column[0]:column here
//= top/row[1]/column[0]/u:cell_ q d[1:0] inverted[1:0]
//= top/row[1]/column[0]/genblk1:genblk1 off_diagonal
//= top/genblk2:genblk2 unlabelled
//= top/two:two in_two
//= top/otherwise:otherwise in_otherwise
//= top/genblk5[5]:genblk5 looped
//= top/genblk5[6]:genblk5 looped
//= top/bank[1]:cell_ q d[0:0] inverted[0:0]
//= top/bank[0]:cell_ q d[0:0] inverted[0:0]
//= top/upward[3]:cell_ q d[0:0] inverted[0:0]
//= top/upward[4]:cell_ q d[0:0] inverted[0:0]
//= top/t:tree d q
//= top/t/branch:branch left right
//= top/t/branch/l:tree d q
//= top/t/branch/l/leaf:leaf value[0:0]
//= top/t/branch/r:tree d q
//= top/t/branch/r/leaf:leaf value[0:0]
