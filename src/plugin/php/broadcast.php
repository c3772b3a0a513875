<?php

/*
 * The broadcaster is an ARC service. How long it may take is well below the half minute after which hosts end PHP, and
 * above the five seconds after which ARC itself answers with what it knows by then.
 */
define( 'BRASSLET_BROADCAST_SECONDS', 12 );

/*
 * What ARC says of a transaction that it has: from the moment at which it has taken it in, to the block.
 */
define(
	'BRASSLET_ACCEPTED',
	'QUEUED RECEIVED STORED ANNOUNCED_TO_NETWORK REQUESTED_BY_NETWORK SENT_TO_NETWORK ACCEPTED_BY_NETWORK'
	. ' SEEN_ON_NETWORK MINED'
);

/**
 * Hands a transaction to the broadcaster.
 *
 * Nothing that the broadcaster writes reaches the payer, apart from the kind of its answer.
 *
 * @param string $txid  The transaction id.
 * @param string $bytes The transaction.
 * @return WP_Error|null Null when the broadcaster has it.
 */
function brasslet_broadcast( $txid, $bytes ) {
	$request = array(
		'method' => 'POST',
		'body'   => wp_json_encode( array( 'rawTx' => bin2hex( $bytes ) ) ),
	);
	$reply   = brasslet_ask_broadcaster( '/v1/tx', $request );
	if ( is_wp_error( $reply ) ) {
		return brasslet_unreached( $reply );
	}
	$status   = (int) wp_remote_retrieve_response_code( $reply );
	$document = json_decode( wp_remote_retrieve_body( $reply ), true );
	$document = is_array( $document ) ? $document : array();
	if ( 200 !== $status && 201 !== $status ) {
		return brasslet_refusal_of( $status, $document );
	}
	// ARC tells some refusals by a status inside its answer.
	if ( isset( $document['status'] ) && is_int( $document['status'] ) && $document['status'] >= 400 ) {
		return brasslet_refusal_of( $document['status'], $document );
	}
	if ( strtolower( brasslet_string( $document['txid'] ?? '' ) ) !== $txid ) {
		return brasslet_unknown( 502 );
	}
	return brasslet_refusal_in( brasslet_string( $document['txStatus'] ?? '' ) );
}

/**
 * Reads what ARC says of a transaction that it was given.
 *
 * @param string $said The transaction's status.
 * @return WP_Error|null Null when ARC has it.
 */
function brasslet_refusal_in( $said ) {
	if ( in_array( $said, explode( ' ', BRASSLET_ACCEPTED ), true ) ) {
		return null;
	}
	if ( 'REJECTED' === $said ) {
		return brasslet_refused();
	}
	if ( 'DOUBLE_SPEND_ATTEMPTED' === $said ) {
		return brasslet_double_spent();
	}
	if ( 'SEEN_IN_ORPHAN_MEMPOOL' === $said ) {
		return brasslet_error(
			'brasslet_orphan',
			'The network may take this transaction when it knows what it spends. Send that, then deliver this again.',
			424
		);
	}
	return brasslet_unknown( 502 );
}

/**
 * Reads a refusal of ARC.
 *
 * @param int   $status   ARC's status, of HTTP or inside the answer.
 * @param array $document ARC's problem document; empty when the answer was none.
 * @return WP_Error
 */
function brasslet_refusal_of( $status, $document ) {
	if ( $status >= 500 ) {
		return brasslet_unknown( 502 );
	}
	// Only ARC's own document speaks of the transaction. Anything else, as a page with an error, comes from whoever
	// answers at that address, and so do the statuses about addresses, keys and quotas.
	$is_problem = ( $document['status'] ?? null ) === $status;
	$is_verdict = in_array( $status, array( 400, 409, 422 ), true ) || $status >= 460;
	if ( ! $is_problem || ! $is_verdict ) {
		return brasslet_unsent(
			'brasslet_closed',
			'The broadcaster of this site takes no transactions from it. Tell the owner of the site.',
			502
		);
	}
	if ( in_array( $status, array( 465, 473 ), true ) ) {
		return brasslet_error(
			'brasslet_fee',
			'The broadcaster refused the transaction: its fee is too low. Pay again with a higher one.',
			422
		);
	}
	// Inputs that are unknown or spent, and another transaction that spends them.
	if ( in_array( $status, array( 462, 466 ), true ) ) {
		return brasslet_double_spent();
	}
	return brasslet_refused();
}

/**
 * The refusal of a transaction that the broadcaster finds wrong.
 *
 * @return WP_Error
 */
function brasslet_refused() {
	return brasslet_error(
		'brasslet_refused',
		'The broadcaster refused the transaction. The payment was not made.',
		422
	);
}

/**
 * The refusal of a transaction whose inputs are spent elsewhere.
 *
 * @return WP_Error
 */
function brasslet_double_spent() {
	return brasslet_error(
		'brasslet_double_spend',
		'The coins of this transaction are unknown to the broadcaster, or spent by another. Do not count on it.',
		409
	);
}

/**
 * The answer when nobody can say whether the broadcaster has the transaction. ARC takes one that it has as well.
 *
 * @param int $status HTTP status code.
 * @return WP_Error
 */
function brasslet_unknown( $status ) {
	return brasslet_error(
		'brasslet_unknown',
		'The broadcaster gave no clear answer: the payment may have been sent. Deliver the same transaction again.',
		$status
	);
}

/**
 * Tells a broadcaster that was not reached from one that did not answer.
 *
 * @param WP_Error $failure What WordPress says about the request.
 * @return WP_Error
 */
function brasslet_unreached( $failure ) {
	if ( 'brasslet_no_key' === $failure->get_error_code() ) {
		return brasslet_refusal_of( 401, array() );
	}
	$said = $failure->get_error_message();
	// Where WordPress has not even tried; its words for that are those of the site's language.
	$untried = array( __( 'A valid URL was not provided.' ), __( 'User has blocked requests through HTTP.' ) );
	// Proxy, name, connection, handshake, certificate (by its old number and its new one): nothing was sent then.
	if ( in_array( $said, $untried, true ) || 1 === preg_match( '/^cURL error (5|6|7|35|51|60):/', $said ) ) {
		return brasslet_unsent(
			'brasslet_unreachable',
			'The broadcaster of this site cannot be reached. Deliver the same transaction again later.',
			502
		);
	}
	return brasslet_unknown( 504 );
}
