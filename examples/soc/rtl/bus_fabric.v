// One master, many slaves: the upper four bits of the address choose the slave. An address that no slave
// has is acknowledged with 0xff and reported for one cycle.
module bus_fabric #(
    parameter SLAVES = 4
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                request,
    input  wire [15:0]         address,
    output wire [7:0]          rdata,
    output wire                ack,
    output reg                 decode_error,
    output wire [SLAVES-1:0]   slave_select,
    input  wire [SLAVES-1:0]   slave_ack,
    input  wire [8*SLAVES-1:0] slave_rdata
);

    wire none_selected = request && slave_select == 0;

    // Slaves that are not acknowledging add nothing to the data.
    genvar s;
    generate
        for (s = 0; s < SLAVES; s = s + 1) begin : decode
            wire       hit    = address[15:12] == s;
            wire [7:0] chosen = slave_rdata[8*s +: 8] & {8{slave_ack[s]}};
            wire [7:0] merged;

            assign slave_select[s] = request && hit;
            if (s == 0)
                assign merged = chosen | {8{decode_error}};
            else
                assign merged = chosen | decode[s-1].merged;
        end
    endgenerate

    assign rdata = decode[SLAVES-1].merged;
    assign ack   = |slave_ack || decode_error;

    always @(posedge clk)
        if (rst)
            decode_error <= 1'b0;
        else
            decode_error <= none_selected && !decode_error;

endmodule
