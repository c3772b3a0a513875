<?php

/*
 * The longest reference that is looked at, and for how long a reference holds.
 */
define( 'BRASSLET_LONGEST_REFERENCE', 512 );
define( 'BRASSLET_REFERENCE_SECONDS', 86400 );

/**
 * Answers the capability "P2P Transactions" (BRFC 5f1323cddf31): takes a transaction, and hands it to the broadcaster.
 *
 * In the order of what it costs: what needs no database comes first, and of that the reference's MAC. What the payer
 * tells about himself ("metadata") is not read.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_receive_transaction( $request ) {
	$params    = brasslet_json( $request );
	$hex       = brasslet_string( $params['hex'] ?? '' );
	$reference = brasslet_string( $params['reference'] ?? '' );
	if ( '' === $hex || '' === $reference ) {
		return brasslet_error( 'brasslet_delivery', 'Send JSON with the members "hex" and "reference".', 400 );
	}
	$promise = strlen( $reference ) > BRASSLET_LONGEST_REFERENCE ? null : brasslet_read_reference( $reference );
	$refusal = brasslet_refuse_promise( $promise, $request );
	$bytes   = null === $refusal ? brasslet_read_payment( $hex, $promise ) : $refusal;
	if ( is_wp_error( $bytes ) ) {
		return $bytes;
	}
	$txid = brasslet_txid( $bytes );
	if ( ! brasslet_was_accepted( $txid ) ) {
		$refusal = brasslet_refuse_name( $promise ) ?? brasslet_hand_over( $txid, $bytes );
	}
	return $refusal ?? array(
		'txid' => $txid,
		'note' => 'The payment was handed to the network.',
	);
}

/**
 * Reads the transaction of a delivery.
 *
 * @param string $hex     The transaction as it was given.
 * @param array  $promise What its reference holds.
 * @return string|WP_Error Its bytes, or that it is none, or does not pay what the reference promises.
 */
function brasslet_read_payment( $hex, $promise ) {
	if ( strlen( $hex ) > 2 * BRASSLET_LONGEST_TRANSACTION ) {
		return brasslet_unsent( 'brasslet_too_long', 'The transaction is longer than 100,000 bytes.', 413 );
	}
	// hex2bin() complains of an odd number of digits. A regular expression would meet its limits in so many of them.
	$is_hex  = 0 === strlen( $hex ) % 2 && strspn( $hex, '0123456789abcdefABCDEF' ) === strlen( $hex );
	$bytes   = $is_hex ? hex2bin( $hex ) : '';
	$outputs = brasslet_outputs_in( $bytes );
	if ( null === $outputs ) {
		return brasslet_unsent( 'brasslet_transaction', 'The transaction cannot be read.', 400 );
	}
	$wanted = array(
		'satoshis' => $promise['satoshis'],
		'script'   => hex2bin( brasslet_script( $promise['address'] ) ),
	);
	if ( ! in_array( $wanted, $outputs, true ) ) {
		return brasslet_unsent(
			'brasslet_unpaid',
			'The transaction has no output with the script and the satoshis of its reference.',
			422
		);
	}
	return $bytes;
}

/**
 * Refuses what a reference that this site has made does not promise to this request.
 *
 * @param array|null      $promise What the reference holds; null when this site has not made it.
 * @param WP_REST_Request $request The request.
 * @return WP_Error|null
 */
function brasslet_refuse_promise( $promise, $request ) {
	if ( null === $promise ) {
		return brasslet_unsent(
			'brasslet_reference',
			'This site has not made that reference. Ask for the outputs of the payment again.',
			400
		);
	}
	$alias = brasslet_string( $request->get_url_params()['alias'] ?? '' );
	if ( strtolower( rawurldecode( $alias ) ) !== $promise['alias'] ) {
		return brasslet_unsent(
			'brasslet_other_name',
			'That reference belongs to another name. Ask for the outputs of the payment again.',
			403
		);
	}
	if ( time() - $promise['time'] > BRASSLET_REFERENCE_SECONDS ) {
		return brasslet_unsent(
			'brasslet_expired',
			'That reference is older than a day. Ask for the outputs of the payment again.',
			410
		);
	}
	return null;
}

/**
 * Refuses a payment to a name that has gone, or has another address by now.
 *
 * @param array $promise What the reference holds.
 * @return WP_Error|null
 */
function brasslet_refuse_name( $promise ) {
	$row = brasslet_rows()[ $promise['alias'] ] ?? null;
	if ( null === $row ) {
		return brasslet_unsent( 'brasslet_miss', 'This name is not published any more.', 404 );
	}
	if ( $row['address'] !== $promise['address'] ) {
		return brasslet_unsent(
			'brasslet_moved',
			'This name has got another address meanwhile. Ask for the outputs of the payment again.',
			412
		);
	}
	return null;
}

/**
 * The refusal of a payment that this site has given to nobody.
 *
 * @param string $code    The code.
 * @param string $message The sentence that says why.
 * @param int    $status  HTTP status code.
 * @return WP_Error
 */
function brasslet_unsent( $code, $message, $status ) {
	return brasslet_error( $code, $message . ' Nothing was sent.', $status );
}
